// Common base of the records that carry an object's name.
#pragma once

#include "host/persistence/HostPersistence.h"
#include "metadata/KRC_MetadataDump.h"
#include "naming/KRC_ObjectName.h"

class KRC_ObjInfoPrivate;

/// A record holding the name of a shot or a panel (`name()`), beside whatever its
/// subclass adds. It leaves every record operation to the subclass; the name starts with
/// a null value and flag 0.
///
/// For its subclasses it offers the shared pieces of their format: a name is written as
/// two attributes, its text and its flag word (`NameAttributes`), dumped as the same two
/// items, and the shared validity rule. Copy and assignment take the identity, then the
/// name. Threading: the host's thread.
class KRC_ObjInfo : public PIO_Metadata
{
public:
    /// The attribute pair of one stored name: its text and its flag word.
    struct NameAttributes
    {
        QString value;
        QString flag;
    };

    KRC_ObjInfo(
        QString const& metaType, QString const& metaName, QString const& creator, QString const& version);
    KRC_ObjInfo(KRC_ObjInfo const& other);
    KRC_ObjInfo& operator=(KRC_ObjInfo const& other);
    ~KRC_ObjInfo() override;

    bool isValid() const override = 0;
    PIO_XML::ComponentReader* componentReader() override = 0;
    PIO_Metadata* clone() const override = 0;
    void dumpToString(QString& out) const override = 0;

    KRC_ObjectName& name();
    KRC_ObjectName const& name() const;

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override = 0;

    /// Only a custom name left empty makes an info record unusable.
    bool hasUsableName() const;

    static void writeName(PO_XmlWriter& writer, NameAttributes const& attributes, KRC_ObjectName const& name);
    static void addNameItems(
        QVector<KRC_MetadataDump::Item>& items, NameAttributes const& attributes, KRC_ObjectName const& name);

private:
    KRC_ObjInfoPrivate* d;
};

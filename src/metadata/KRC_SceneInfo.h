// The record of a shot: its name and the names of its sequence and act.
#pragma once

#include "metadata/KRC_MetadataRecord.h"
#include "metadata/KRC_ObjInfo.h"

class KRC_SceneInfoPrivate;

/// Identity of a shot, kept on the shot's symbol scene: the shot's name (from
/// KRC_ObjInfo) and the names of the sequence and the act the shot belongs to.
///
/// A new record (any route but the copy) has three null names; the shot's name carries
/// the custom bit from the start, the other two flag 0. `isValid()` is false only for a
/// custom name left empty, so a new record is invalid until it is named. Keyword
/// "sceneInfo", version "1.0"; XML: one element "sceneInfo" with the attributes name,
/// nameFlag, sequenceName, sequenceNameFlag, actName, actNameFlag, in that order.
/// `clone()` keeps the source's identity. Threading: the host's thread.
class KRC_SceneInfo : public KRC_MetadataRecord<KRC_SceneInfo, KRC_SceneInfoPrivate, KRC_ObjInfo>
{
public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;

    KRC_SceneInfo();
    explicit KRC_SceneInfo(QString const& name);
    KRC_SceneInfo(QString const& name, QString const& creator, QString const& version);

    bool isValid() const override;
    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override;
    void dumpToString(QString& out) const override;

    KRC_ObjectName& sequenceName();
    KRC_ObjectName const& sequenceName() const;
    KRC_ObjectName& actName();
    KRC_ObjectName const& actName() const;

    /// True while the sequence name is not locked.
    bool canModifySequenceName() const;
    /// True while the act name is not locked.
    bool canModifyActName() const;

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;

private:
    void markNameCustom();
};

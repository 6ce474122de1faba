// Base of every persisted record of the stand-in persistence library.
#pragma once

#include <QString>

class PIO_Metadata;
class PIO_WritingContext;
class TUSceneChangeManager;
namespace PIO_XML {
class ComponentReader;
}

/// Hands a record's change to the scene engine's change manager. Defined by the scene
/// engine library (src/host/engine): the persistence library only calls it.
void PIO_postMetadataChange(TUSceneChangeManager* manager, PIO_Metadata* meta, int code);

/// A typed record that lives in a PIO_Metadatas collection and is saved as XML.
///
/// Every record carries four identity strings, given at construction in the order
/// metaType, metaName, creator, version; metaType is the keyword by which the factory
/// rebuilds it. A null metaName means "the one record of its type".
///
/// Derived classes implement, in this order behind the destructor: `isValid`,
/// `componentReader` (a new reader bound to this record, count 0), `clone` (a new
/// record the caller owns), `dumpToString` (call the base first) and the protected
/// `writeMetadataSubnodes` (the record's own XML; the collection writer frames it).
/// Copy and assignment copy the identity. Threading: host's thread.
class PIO_Metadata
{
public:
    PIO_Metadata(
        QString const& metaType, QString const& metaName, QString const& creator, QString const& version);
    PIO_Metadata(PIO_Metadata const& other);
    PIO_Metadata& operator=(PIO_Metadata const& other);
    virtual ~PIO_Metadata();

    /// True once the record holds a value worth using; the base is always valid.
    virtual bool isValid() const;
    virtual PIO_XML::ComponentReader* componentReader() = 0;
    virtual PIO_Metadata* clone() const = 0;
    /// Appends "Metadata type=..., name=..., creator=..., version=...\n".
    virtual void dumpToString(QString& out) const;

    QString const& metaType() const;
    QString const& metaName() const;
    QString const& creator() const;
    QString const& version() const;

    /// Reports a change of this record to `manager` with the engine's change `code`;
    /// nothing happens without a manager.
    void emitChanged(TUSceneChangeManager* manager, int code);

protected:
    friend class PIO_MetadatasXml;
    virtual void writeMetadataSubnodes(PIO_WritingContext& context) const = 0;

private:
    class PIO_MetadataPrivate;
    PIO_MetadataPrivate* d;
};

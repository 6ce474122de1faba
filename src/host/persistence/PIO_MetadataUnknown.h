// Record kept as read when no factory knows its keyword.
#pragma once

#include "host/persistence/PIO_Metadata.h"

/// Stands in for an entry whose keyword no registered factory knows (a record of a
/// newer program, or of a library that is not loaded), so that loading and saving a
/// project loses nothing: it keeps the entry's identity and its elements, attributes
/// and text as read, and writes them back unchanged. It is always valid.
/// Threading: host's thread.
class PIO_MetadataUnknown : public PIO_Metadata
{
public:
    PIO_MetadataUnknown(
        QString const& metaType, QString const& metaName, QString const& creator, QString const& version);
    PIO_MetadataUnknown(PIO_MetadataUnknown const& other);
    PIO_MetadataUnknown& operator=(PIO_MetadataUnknown const& other);
    ~PIO_MetadataUnknown() override;

    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override;
    /// The base line, then "kept as read: %1 elements\n".
    void dumpToString(QString& out) const override;

    /// Number of elements kept.
    int elementCount() const;

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;

private:
    friend class PIO_MetadataUnknownReader;
    class PIO_MetadataUnknownPrivate;
    PIO_MetadataUnknownPrivate* d;
};

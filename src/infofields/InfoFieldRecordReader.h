// The reader frame of the info field records.
#pragma once

#include "metadata/KRC_MetadataReader.h"

/// Base of the readers of the four info field lists: each "field" element that arrives
/// while the record is held goes to `readField`; every other element is passed over.
/// The record is let go at the end of its own element (named like its metaType), so
/// whatever follows is ignored. Threading: the thread of the read.
class InfoFieldRecordReader : public KRC_MetadataReader
{
public:
    explicit InfoFieldRecordReader(PIO_Metadata* record);

    UT_SharedPtr<PIO_XML::ComponentReader> handleStartElement(
        PIO_ReadingContext& context, QString const& elementName, QXmlAttributes const& attributes) final;

protected:
    /// One "field" element; `record()` is not null here.
    virtual void readField(QXmlAttributes const& attributes) = 0;
    /// The field's "id" into `id`; false, and the field is to be dropped, when it is not
    /// an integer.
    static bool readId(QXmlAttributes const& attributes, int& id);
};

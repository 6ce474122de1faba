// Reader of the "pdfOptions" record.
#pragma once

#include "metadata/KRC_MetadataReader.h"

class KRC_PdfOptions;
class KRC_Property;

/// Fills a KRC_PdfOptions from its "option" children.
///
/// "option" makes an empty property of its "type" by KRC_PropertyFactory (the pending
/// property, owned by the reader; an unknown type leaves none). The first "value"
/// inside it decodes the attribute "data": a blob that starts with the mark 0xb0b00000,
/// 473 is loaded after the mark in stream version 12; one without the mark, or whose
/// load fails, is loaded from its first byte in version 6. When the property then
/// holds a valid value, a clone of it goes into the record; otherwise the option is
/// dropped in silence. The pending property is deleted after its "value", at the end of
/// its "option" and with the reader. Other elements are ignored; the record is kept to
/// the end of the read. Threading: the thread of the read.
class PdfOptionsMetadataReader : public KRC_MetadataReader
{
public:
    static QString const kOption; // "option"
    static QString const kName; // "name"
    static QString const kType; // "type"
    static QString const kValue; // "value"
    static QString const kData; // "data"
    /// The two 32-bit integers ahead of a current blob, and its stream version.
    static quint32 const kBlobMark; // 0xb0b00000
    static qint32 const kBlobMarkVersion; // 473
    static int const kBlobStreamVersion; // 12
    static int const kLegacyStreamVersion; // 6

    explicit PdfOptionsMetadataReader(KRC_PdfOptions* record);
    ~PdfOptionsMetadataReader() override;

    UT_SharedPtr<PIO_XML::ComponentReader> handleStartElement(
        PIO_ReadingContext& context, QString const& elementName, QXmlAttributes const& attributes) override;
    bool handleEndElement(PIO_ReadingContext& context, QString const& elementName) override;

private:
    void startOption(QXmlAttributes const& attributes);
    void readValue(KRC_PdfOptions& record, QXmlAttributes const& attributes);
    void dropPending();

    KRC_Property* m_pending = nullptr;
};

// Reader of the "referenceToolData" record.
#pragma once

#include "metadata/KRC_MetadataReader.h"

class KRC_ReferenceToolData;

/// Fills a KRC_ReferenceToolData from the children "position", "color" and "options";
/// other elements are ignored, and the record is kept to the end of the read.
///
/// The attributes of one child are parsed in their order into one success flag that
/// each parse overwrites, so the last one ("scale", "a", "value") alone decides whether
/// the child is stored; when it is, every attribute is stored, a bad one as 0. The
/// colour is stored opaque, with "a" going to the record's alpha; a channel outside
/// 0..255 stores an invalid colour, silently.
/// Threading: the thread of the read.
class ReferenceToolDataMetadataReader : public KRC_MetadataReader
{
public:
    static QString const kPosition; // "position"
    static QString const kX; // "x"
    static QString const kY; // "y"
    static QString const kAngle; // "angle"
    static QString const kScale; // "scale"
    static QString const kColor; // "color"
    static QString const kRed; // "r"
    static QString const kGreen; // "g"
    static QString const kBlue; // "b"
    static QString const kAlpha; // "a"
    static QString const kOptions; // "options"
    static QString const kValue; // "value"

    explicit ReferenceToolDataMetadataReader(KRC_ReferenceToolData* record);

    UT_SharedPtr<PIO_XML::ComponentReader> handleStartElement(
        PIO_ReadingContext& context, QString const& elementName, QXmlAttributes const& attributes) override;

private:
    void readPosition(KRC_ReferenceToolData& data, QXmlAttributes const& attributes);
    void readColor(KRC_ReferenceToolData& data, QXmlAttributes const& attributes);
    void readOptions(KRC_ReferenceToolData& data, QXmlAttributes const& attributes);
};

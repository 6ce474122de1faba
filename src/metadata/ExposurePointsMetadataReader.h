// Reader of the "exposurePoints" record.
#pragma once

#include "metadata/KRC_MetadataReader.h"

class KRC_ExposurePoints;

/// Fills a KRC_ExposurePoints: "primaryExposure" of the record's element becomes the
/// primary point, and each "pt" adds its "value" to the list (a duplicate is dropped).
/// Values that do not parse are skipped. Points go straight into the list, so the first
/// one read does not become primary. The record is kept to the end of the read.
/// Threading: the thread of the read.
class ExposurePointsMetadataReader : public KRC_MetadataReader
{
public:
    static QString const kPrimaryExposure; // "primaryExposure"
    static QString const kPoint; // "pt"
    static QString const kValue; // "value"

    explicit ExposurePointsMetadataReader(KRC_ExposurePoints* record);

    UT_SharedPtr<PIO_XML::ComponentReader> handleStartElement(
        PIO_ReadingContext& context, QString const& elementName, QXmlAttributes const& attributes) override;
};

#include "metadata/ExposurePointsMetadataReader.h"

#include "metadata/KRC_ExposurePoints.h"

QString const ExposurePointsMetadataReader::kPrimaryExposure = QStringLiteral("primaryExposure");
QString const ExposurePointsMetadataReader::kPoint = QStringLiteral("pt");
QString const ExposurePointsMetadataReader::kValue = QStringLiteral("value");

ExposurePointsMetadataReader::ExposurePointsMetadataReader(KRC_ExposurePoints* record)
    : KRC_MetadataReader(record, Release::Never)
{
}

UT_SharedPtr<PIO_XML::ComponentReader> ExposurePointsMetadataReader::handleStartElement(
    PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes)
{
    KRC_ExposurePoints* points = recordAs<KRC_ExposurePoints>();
    double value = 0.0;
    if (!points)
        return self();
    if (elementName == KRC_ExposurePoints::kPIO_KRMETA_Keyword) {
        if (checkedDouble(attributes, kPrimaryExposure, value))
            points->setPrimaryExposurePoint(static_cast<float>(value));
    } else if (elementName == kPoint) {
        if (checkedDouble(attributes, kValue, value))
            points->exposureList().insert(static_cast<float>(value));
    }
    return self();
}

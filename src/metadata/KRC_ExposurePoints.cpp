#include "metadata/KRC_ExposurePoints.h"

#include "metadata/ExposurePointsMetadataReader.h"
#include "metadata/KRC_MetadataRecordImpl.h"

#include <cmath>

class KRC_ExposurePointsPrivate
{
public:
    KRC_ExposurePoints::ExposureList points;
    float primary = 0.0f;
};

template class KRC_MetadataRecord<KRC_ExposurePoints, KRC_ExposurePointsPrivate>;

QString const KRC_ExposurePoints::kPIO_KRMETA_Keyword = QStringLiteral("exposurePoints");
QString const KRC_ExposurePoints::kPIO_KRMETA_Version = QStringLiteral("1.0");

namespace {

QString pointText(float point)
{
    return QString::number(static_cast<double>(point), 'g', 6);
}

} // namespace

bool KRC_ExposurePoints::isValid() const
{
    return priv().primary >= 0.0f;
}

PIO_XML::ComponentReader* KRC_ExposurePoints::componentReader()
{
    return KRC_MetadataReader::create<ExposurePointsMetadataReader>(this);
}

PIO_Metadata* KRC_ExposurePoints::clone() const
{
    return cloneKeepingIdentity();
}

void KRC_ExposurePoints::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    out += QStringLiteral("%1=%2").arg(ExposurePointsMetadataReader::kPrimaryExposure, pointText(priv().primary));
    if (!priv().points.empty()) {
        // Every point, the primary among them, each followed by ", ".
        out += QStringLiteral(", Others=");
        for (float point : priv().points)
            out += QStringLiteral("%1, ").arg(pointText(point));
    }
    out += QLatin1Char('\n');
}

void KRC_ExposurePoints::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    writeRecordElement(context, [this](PO_XmlWriter& writer) {
        writer.encodeDoubleAttr(ExposurePointsMetadataReader::kPrimaryExposure, priv().primary);
        for (float point : priv().points) {
            writer.beginElement(ExposurePointsMetadataReader::kPoint);
            writer.encodeDoubleAttr(ExposurePointsMetadataReader::kValue, point);
            writer.endElement();
        }
    });
}

bool KRC_ExposurePoints::insertExposurePoint(float point)
{
    if (!priv().points.insert(point).second)
        return false;
    if (priv().points.size() == 1)
        priv().primary = point;
    return true;
}

bool KRC_ExposurePoints::removeExposurePoint(float point)
{
    return priv().points.erase(point) > 0;
}

bool KRC_ExposurePoints::canInsertExposurePoint() const
{
    return true;
}

void KRC_ExposurePoints::setPrimaryExposurePoint(float point)
{
    priv().primary = point;
}

bool KRC_ExposurePoints::isPrimaryExposurePoint(float point) const
{
    return priv().primary == point;
}

float KRC_ExposurePoints::getPrimaryExposurePoint() const
{
    return priv().points.empty() ? 0.0f : priv().primary;
}

int KRC_ExposurePoints::getPrimaryExposureFrame(int length) const
{
    return getExposureFrame(length, getPrimaryExposurePoint());
}

int KRC_ExposurePoints::getExposureFrame(int length, float point)
{
    const float offset = static_cast<float>(length - 1) * point;
    const float rounded = static_cast<float>(static_cast<double>(offset) + 1.5);
    return static_cast<int>(std::floor(rounded));
}

quint64 KRC_ExposurePoints::getNumOfExposurePoint() const
{
    return priv().points.size();
}

KRC_ExposurePoints::ExposureList& KRC_ExposurePoints::exposureList()
{
    return priv().points;
}

KRC_ExposurePoints::ExposureList const& KRC_ExposurePoints::exposureList() const
{
    return priv().points;
}

KRC_ExposurePoints::ExposureList::const_iterator KRC_ExposurePoints::beginExposureList() const
{
    return priv().points.cbegin();
}

KRC_ExposurePoints::ExposureList::const_iterator KRC_ExposurePoints::endExposureList() const
{
    return priv().points.cend();
}

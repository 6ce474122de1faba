#include "metadata/KRC_ReferenceToolData.h"

#include "metadata/KRC_MetadataRecordImpl.h"
#include "metadata/ReferenceToolDataMetadataReader.h"

class KRC_ReferenceToolDataPrivate
{
public:
    KRC_ReferenceToolData::Data_t data;
    int options = 0;
};

template class KRC_MetadataRecord<KRC_ReferenceToolData, KRC_ReferenceToolDataPrivate>;

QString const KRC_ReferenceToolData::kPIO_KRMETA_Keyword = QStringLiteral("referenceToolData");
QString const KRC_ReferenceToolData::kPIO_KRMETA_Version = QStringLiteral("1.0");

namespace {

QString flagText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

bool KRC_ReferenceToolData::Data_t::operator==(Data_t const& other) const
{
    return pos.x() == other.pos.x() && pos.y() == other.pos.y() && angle == other.angle
        && scale == other.scale && rgb == other.rgb && alpha == other.alpha;
}

bool KRC_ReferenceToolData::isValid() const
{
    return true;
}

PIO_XML::ComponentReader* KRC_ReferenceToolData::componentReader()
{
    return KRC_MetadataReader::create<ReferenceToolDataMetadataReader>(this);
}

PIO_Metadata* KRC_ReferenceToolData::clone() const
{
    KRC_ReferenceToolData* copy = cloneAsFresh();
    copy->PIO_Metadata::operator=(*this);
    return copy;
}

void KRC_ReferenceToolData::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    Data_t const& data = priv().data;
    out += QStringLiteral("Position x=%1, y=%2\n").arg(data.pos.x()).arg(data.pos.y());
    out += QStringLiteral("Scale=%1, angle=%2\n").arg(data.scale).arg(data.angle);
    out += QStringLiteral("Color(r,g,b,a) = %1, %2, %3, %4\n")
               .arg(data.rgb.red())
               .arg(data.rgb.green())
               .arg(data.rgb.blue())
               .arg(data.alpha);
    out += QStringLiteral("Show on thumbnails = %1\n").arg(flagText(showOnThumbnails()));
    out += QStringLiteral("Auto update thumbnails = %1\n").arg(flagText(autoUpdateThumbnails()));
}

void KRC_ReferenceToolData::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    using Reader = ReferenceToolDataMetadataReader;
    Data_t const& data = priv().data;
    writeRecordElement(context, [&](PO_XmlWriter& writer) {
        writer.beginElement(Reader::kPosition);
        writer.encodeDoubleAttr(Reader::kX, data.pos.x());
        writer.encodeDoubleAttr(Reader::kY, data.pos.y());
        writer.encodeDoubleAttr(Reader::kAngle, data.angle);
        writer.encodeDoubleAttr(Reader::kScale, data.scale);
        writer.endElement();
        writer.beginElement(Reader::kColor);
        writer.encodeIntAttr(Reader::kRed, data.rgb.red());
        writer.encodeIntAttr(Reader::kGreen, data.rgb.green());
        writer.encodeIntAttr(Reader::kBlue, data.rgb.blue());
        writer.encodeDoubleAttr(Reader::kAlpha, data.alpha);
        writer.endElement();
        writer.beginElement(Reader::kOptions);
        writer.encodeIntAttr(Reader::kValue, priv().options);
        writer.endElement();
    });
}

Math::Point2d const& KRC_ReferenceToolData::pos() const
{
    return priv().data.pos;
}

void KRC_ReferenceToolData::setPos(Math::Point2d const& pos)
{
    priv().data.pos = pos;
}

double KRC_ReferenceToolData::angle() const
{
    return priv().data.angle;
}

void KRC_ReferenceToolData::setAngle(double angle)
{
    priv().data.angle = angle;
}

double KRC_ReferenceToolData::scale() const
{
    return priv().data.scale;
}

void KRC_ReferenceToolData::setScale(double scale)
{
    priv().data.scale = scale;
}

QColor const& KRC_ReferenceToolData::rgb() const
{
    return priv().data.rgb;
}

void KRC_ReferenceToolData::setRgb(QColor const& rgb)
{
    priv().data.rgb = rgb;
}

double KRC_ReferenceToolData::alpha() const
{
    return priv().data.alpha;
}

void KRC_ReferenceToolData::setAlpha(double alpha)
{
    priv().data.alpha = alpha;
}

int KRC_ReferenceToolData::options() const
{
    return priv().options;
}

void KRC_ReferenceToolData::setOptions(int options)
{
    priv().options = options;
}

void KRC_ReferenceToolData::addOption(Option option)
{
    priv().options |= option;
}

bool KRC_ReferenceToolData::showOnThumbnails() const
{
    return priv().options & ShowOnThumbnails;
}

bool KRC_ReferenceToolData::autoUpdateThumbnails() const
{
    return priv().options & AutoUpdateThumbnails;
}

KRC_ReferenceToolData::Data_t const& KRC_ReferenceToolData::data() const
{
    return priv().data;
}

#include "metadata/ReferenceToolDataMetadataReader.h"

#include "metadata/KRC_ReferenceToolData.h"

#include <QXmlAttributes>

QString const ReferenceToolDataMetadataReader::kPosition = QStringLiteral("position");
QString const ReferenceToolDataMetadataReader::kX = QStringLiteral("x");
QString const ReferenceToolDataMetadataReader::kY = QStringLiteral("y");
QString const ReferenceToolDataMetadataReader::kAngle = QStringLiteral("angle");
QString const ReferenceToolDataMetadataReader::kScale = QStringLiteral("scale");
QString const ReferenceToolDataMetadataReader::kColor = QStringLiteral("color");
QString const ReferenceToolDataMetadataReader::kRed = QStringLiteral("r");
QString const ReferenceToolDataMetadataReader::kGreen = QStringLiteral("g");
QString const ReferenceToolDataMetadataReader::kBlue = QStringLiteral("b");
QString const ReferenceToolDataMetadataReader::kAlpha = QStringLiteral("a");
QString const ReferenceToolDataMetadataReader::kOptions = QStringLiteral("options");
QString const ReferenceToolDataMetadataReader::kValue = QStringLiteral("value");

namespace {

// Each parse overwrites the shared flag: the format keeps only the last one's verdict.
double sharedDouble(QXmlAttributes const& attributes, QString const& name, bool& ok)
{
    return attributes.value(name).toDouble(&ok);
}

int sharedInt(QXmlAttributes const& attributes, QString const& name, bool& ok)
{
    return attributes.value(name).toInt(&ok, 10);
}

bool isChannel(int value)
{
    return value >= 0 && value <= 255;
}

} // namespace

ReferenceToolDataMetadataReader::ReferenceToolDataMetadataReader(KRC_ReferenceToolData* record)
    : KRC_MetadataReader(record, Release::Never)
{
}

UT_SharedPtr<PIO_XML::ComponentReader> ReferenceToolDataMetadataReader::handleStartElement(
    PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes)
{
    if (KRC_ReferenceToolData* data = recordAs<KRC_ReferenceToolData>()) {
        if (elementName == kPosition)
            readPosition(*data, attributes);
        else if (elementName == kColor)
            readColor(*data, attributes);
        else if (elementName == kOptions)
            readOptions(*data, attributes);
    }
    return self();
}

void ReferenceToolDataMetadataReader::readPosition(
    KRC_ReferenceToolData& data, QXmlAttributes const& attributes)
{
    bool ok = false;
    const double x = sharedDouble(attributes, kX, ok);
    const double y = sharedDouble(attributes, kY, ok);
    const double angle = sharedDouble(attributes, kAngle, ok);
    const double scale = sharedDouble(attributes, kScale, ok);
    if (!ok)
        return;
    data.setPos(Math::Point2d(x, y));
    data.setAngle(angle);
    data.setScale(scale);
}

void ReferenceToolDataMetadataReader::readColor(KRC_ReferenceToolData& data, QXmlAttributes const& attributes)
{
    bool ok = false;
    const int red = sharedInt(attributes, kRed, ok);
    const int green = sharedInt(attributes, kGreen, ok);
    const int blue = sharedInt(attributes, kBlue, ok);
    const double alpha = sharedDouble(attributes, kAlpha, ok);
    if (!ok)
        return;
    // Channels out of 0..255 leave the colour invalid, as QColor::setRgb does, but
    // without its warning: a file's bad data prints nothing.
    QColor color;
    if (isChannel(red) && isChannel(green) && isChannel(blue))
        color.setRgb(red, green, blue, 255);
    data.setRgb(color);
    data.setAlpha(alpha);
}

void ReferenceToolDataMetadataReader::readOptions(
    KRC_ReferenceToolData& data, QXmlAttributes const& attributes)
{
    bool ok = false;
    const int options = sharedInt(attributes, kValue, ok);
    if (ok)
        data.setOptions(options);
}

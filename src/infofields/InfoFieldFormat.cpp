#include "infofields/InfoFieldFormat.h"

#include "host/persistence/HostPersistence.h"

namespace InfoFieldFormat {

QString const kField = QStringLiteral("field");
QString const kId = QStringLiteral("id");
QString const kName = QStringLiteral("name");
QString const kType = QStringLiteral("type");
QString const kComment = QStringLiteral("comment");
QString const kSize = QStringLiteral("size");
QString const kPosition = QStringLiteral("position");
QString const kValue = QStringLiteral("value");
QString const kDragName = QStringLiteral("dragName");
QString const kForDrag = QStringLiteral("for_drag");
QString const kImage = QStringLiteral("IMAGE");
QString const kText = QStringLiteral("TEXT");
QString const kTrue = QStringLiteral("true");
QString const kEmpty = QStringLiteral("EMPTY\n");

QString typeName(KRC_InfoFieldDesc::Type type)
{
    return KRC_InfoFieldDesc::isImage(type) ? kImage : kText;
}

QString sizeName(KRC_InfoFieldDesc::Size size)
{
    switch (size) {
    case KRC_InfoFieldDesc::kMinimum:
        return QStringLiteral("MINIMUM");
    case KRC_InfoFieldDesc::kMaximum:
        return QStringLiteral("MAXIMUM");
    default:
        return QStringLiteral("DEFAULT");
    }
}

namespace {

void writeComment(PO_XmlWriter& writer, KRC_InfoFieldDesc::Type type)
{
    if (KRC_InfoFieldDesc::isComment(type))
        writer.encodeStringAttr(kComment, kTrue);
}

} // namespace

void writeType(PO_XmlWriter& writer, KRC_InfoFieldDesc::Type type)
{
    writer.encodeStringAttr(kType, typeName(type));
    writeComment(writer, type);
}

void writeImageType(PO_XmlWriter& writer, KRC_InfoFieldDesc::Type type)
{
    if (KRC_InfoFieldDesc::isImage(type))
        writer.encodeStringAttr(kType, kImage);
    writeComment(writer, type);
}

void writeSize(PO_XmlWriter& writer, KRC_InfoFieldDesc::Size size)
{
    if (size == KRC_InfoFieldDesc::kMinimum || size == KRC_InfoFieldDesc::kMaximum)
        writer.encodeStringAttr(kSize, sizeName(size));
}

KRC_InfoFieldDesc::Type readType(QXmlAttributes const& attributes)
{
    KRC_InfoFieldDesc::Type type
        = attributes.value(kType) == kImage ? KRC_InfoFieldDesc::kImage : KRC_InfoFieldDesc::kText;
    if (attributes.value(kComment) == kTrue)
        type |= KRC_InfoFieldDesc::kComment;
    return type;
}

} // namespace InfoFieldFormat

#include "properties/KRC_PropertyStream.h"

#include <QColor>
#include <QIODevice>
#include <QtEndian>
#include <QStringList>
#include <QTextLength>

#include <iterator>

namespace {

// Containers nest no deeper than this; a deeper blob is refused rather than
// risking the stack.
constexpr int kMaxDepth = 32;

// Type numbers of the oldest stream form (version 6), by position, in today's numbering,
// as Qt reads them: Qt maps position 35 to the easing curve, a type whose reader must
// not see untrusted bytes, so it has to be known here to be refused. Positions past the
// end, and the colour group at 12, read as an invalid value.
const int kOldestFormTypes[] = {
    QMetaType::UnknownType,
    QMetaType::QVariantMap,
    QMetaType::QVariantList,
    QMetaType::QString,
    QMetaType::QStringList,
    QMetaType::QFont,
    QMetaType::QPixmap,
    QMetaType::QBrush,
    QMetaType::QRect,
    QMetaType::QSize,
    QMetaType::QColor,
    QMetaType::QPalette,
    QMetaType::UnknownType,
    QMetaType::QIcon,
    QMetaType::QPoint,
    QMetaType::QImage,
    QMetaType::Int,
    QMetaType::UInt,
    QMetaType::Bool,
    QMetaType::Double,
    QMetaType::QByteArray,
    QMetaType::QPolygon,
    QMetaType::QRegion,
    QMetaType::QBitmap,
    QMetaType::QCursor,
    QMetaType::QSizePolicy,
    QMetaType::QDate,
    QMetaType::QTime,
    QMetaType::QDateTime,
    QMetaType::QByteArray,
    QMetaType::QBitArray,
    QMetaType::QKeySequence,
    QMetaType::QPen,
    QMetaType::LongLong,
    QMetaType::ULongLong,
    QMetaType::QEasingCurve,
};

// The type number that a stream of the given version means by `raw`, in today's numbering.
int typeOfStream(quint32 raw, int version)
{
    if (version < QDataStream::Qt_4_0) {
        return raw < std::size(kOldestFormTypes) ? kOldestFormTypes[raw] : int(QMetaType::UnknownType);
    }
    if (version >= QDataStream::Qt_5_0)
        return int(raw);
    // The middle form: user types at 127, the extended core types from 128 on, and
    // the size policy at 75 ahead of the types that followed it.
    if (raw == 127)
        return QMetaType::User;
    if (raw >= 128 && raw != quint32(QMetaType::User))
        return int(raw - 97);
    if (raw == 75)
        return QMetaType::QSizePolicy;
    if (raw > 75 && raw <= 86)
        return int(raw - 1);
    return int(raw);
}

bool isContainer(int type)
{
    return type == QMetaType::QVariantList || type == QMetaType::QStringList || type == QMetaType::QVariantMap
        || type == QMetaType::QVariantHash;
}

// Value types whose stream reader in Qt allocates nothing by an unchecked count and
// runs no loop by one, in streams of the given version. A QRegExp is not one: its
// reader compiles the pattern, and a few nested repeats cost gigabytes.
bool isSafeLeaf(int type, int version)
{
    switch (type) {
    case QMetaType::QFont:
        // From 5.13 on a font carries a list of families, read by an unchecked count.
        return version < QDataStream::Qt_5_13;
    case QMetaType::UnknownType:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QChar:
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QBitArray:
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
    case QMetaType::QUrl:
    case QMetaType::QLocale:
    case QMetaType::QRect:
    case QMetaType::QRectF:
    case QMetaType::QSize:
    case QMetaType::QSizeF:
    case QMetaType::QLine:
    case QMetaType::QLineF:
    case QMetaType::QPoint:
    case QMetaType::QPointF:
    case QMetaType::QUuid:
    case QMetaType::Long:
    case QMetaType::Short:
    case QMetaType::Char:
    case QMetaType::ULong:
    case QMetaType::UShort:
    case QMetaType::UChar:
    case QMetaType::Float:
    case QMetaType::SChar:
    case QMetaType::QRegularExpression:
    case QMetaType::QColor:
    case QMetaType::QKeySequence:
    case QMetaType::QTextLength:
    case QMetaType::QMatrix:
    case QMetaType::QTransform:
    case QMetaType::QMatrix4x4:
    case QMetaType::QVector2D:
    case QMetaType::QVector3D:
    case QMetaType::QVector4D:
    case QMetaType::QQuaternion:
        return true;
    default:
        return false;
    }
}

// Leaf values whose Qt reader stores a number from the stream straight into an enum:
// the number is checked here first, since an enum holding a value it does not name is
// undefined behaviour. Offset and width count from the end of the value's head.
struct EnumField
{
    int type;
    int offset;
    int bytes;
    qint32 max;
};

constexpr EnumField kEnumFields[] = {
    { QMetaType::QColor, 0, 1, QColor::ExtendedRgb },
    { QMetaType::QTextLength, 0, 4, QTextLength::PercentageLength },
};

// The leading type number and null flag of a stored QVariant, looked at without
// consuming them, so that Qt's own reader can still take a simple value whole.
struct VariantHead
{
    int type = QMetaType::UnknownType;
    bool isNull = false;
    int size = 0;
};

// Longest type name looked up for a value stored under its name.
constexpr int kMaxTypeNameBytes = 64;

// A value stored under its type name (as Qt stores types the older forms did not
// number) is accepted when the name is that of a known type.
int typeOfName(QDataStream& headStream, int headSize, QIODevice* device)
{
    quint32 length = 0;
    headStream >> length;
    if (headStream.status() != QDataStream::Ok || length == 0 || length > quint32(kMaxTypeNameBytes))
        return QMetaType::UnknownType;
    const QByteArray bytes = device->peek(headSize + 4 + int(length));
    if (bytes.size() < headSize + 4 + int(length))
        return QMetaType::UnknownType;
    QByteArray name = bytes.mid(headSize + 4);
    if (name.endsWith('\0'))
        name.chop(1);
    const int type = QMetaType::type(name.constData());
    return type < QMetaType::User ? type : int(QMetaType::UnknownType);
}

bool peekHead(QDataStream& in, VariantHead& head)
{
    const bool hasNullFlag = in.version() >= QDataStream::Qt_4_2;
    head.size = hasNullFlag ? 5 : 4;
    const QByteArray bytes = in.device()->peek(head.size + 4);
    if (bytes.size() < head.size) {
        in.setStatus(QDataStream::ReadPastEnd);
        return false;
    }
    QDataStream headStream(bytes);
    headStream.setVersion(in.version());
    headStream.setByteOrder(in.byteOrder());
    quint32 raw = 0;
    qint8 isNull = 0;
    headStream >> raw;
    if (hasNullFlag)
        headStream >> isNull;
    head.type = typeOfStream(raw, in.version());
    head.isNull = isNull != 0;
    if (head.type == QMetaType::User) {
        const int named = typeOfName(headStream, head.size, in.device());
        // Only simple values come by name; anything else is refused below.
        head.type = named != QMetaType::UnknownType && !isContainer(named) ? named : int(QMetaType::User);
    }
    return true;
}

// Reads an element count and refuses one that the bytes left could not hold, each
// element taking at least `minElementBytes`.
bool readCount(QDataStream& in, int minElementBytes, quint32& count)
{
    in >> count;
    if (in.status() != QDataStream::Ok)
        return false;
    QIODevice* device = in.device();
    if (!device->isSequential()
        && quint64(count) * quint64(minElementBytes) > quint64(device->bytesAvailable())) {
        in.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    return true;
}

// Whether the byte length that stands `offset` bytes ahead (of a string or a byte
// array) fits in the bytes left. Qt's readers grow by a megabyte at a time and find a
// short stream only then, so an unchecked length costs a megabyte or two per value.
// A null length (all ones), or one that cannot be told, is left to Qt's reader.
bool lengthFits(QDataStream& in, int offset)
{
    QIODevice* device = in.device();
    if (device->isSequential())
        return true;
    QByteArray const bytes = device->peek(offset + 4);
    if (bytes.size() < offset + 4)
        return true;
    auto const* at = reinterpret_cast<uchar const*>(bytes.constData() + offset);
    quint32 const length = in.byteOrder() == QDataStream::BigEndian ? qFromBigEndian<quint32>(at)
                                                                     : qFromLittleEndian<quint32>(at);
    return length == 0xFFFFFFFFu || quint64(length) + quint64(offset) + 4 <= quint64(device->bytesAvailable());
}

bool hasLength(int type)
{
    return type == QMetaType::QString || type == QMetaType::QByteArray;
}

// Whether the enum number of a leaf value, if it has one, names a value of its enum.
bool enumFieldIsValid(QDataStream& in, int headSize, int type)
{
    for (EnumField const& field : kEnumFields) {
        // The oldest form stores a colour as one packed number: nothing to check.
        if (field.type != type || in.version() < QDataStream::Qt_4_0)
            continue;
        QByteArray const bytes = in.device()->peek(headSize + field.offset + field.bytes);
        if (bytes.size() < headSize + field.offset + field.bytes)
            return true; // too short: Qt's reader reports the end of the data
        QDataStream fieldStream(bytes.mid(headSize + field.offset));
        fieldStream.setByteOrder(in.byteOrder());
        qint32 number = 0;
        if (field.bytes == 1) {
            qint8 small = 0;
            fieldStream >> small;
            number = small;
        } else {
            fieldStream >> number;
        }
        return number >= 0 && number <= field.max;
    }
    return true;
}

bool readVariantAt(QDataStream& in, QVariant& value, int depth);

bool readVariantList(QDataStream& in, int minVariantBytes, QVariantList& list, int depth)
{
    quint32 count = 0;
    if (!readCount(in, minVariantBytes, count))
        return false;
    for (quint32 i = 0; i < count; ++i) {
        QVariant element;
        if (!readVariantAt(in, element, depth + 1))
            return false;
        list.append(element);
    }
    return true;
}

bool readStringList(QDataStream& in, QStringList& list)
{
    quint32 count = 0;
    if (!readCount(in, 4, count))
        return false;
    for (quint32 i = 0; i < count; ++i) {
        QString text;
        if (!KRC_PropertyStream::readString(in, text))
            return false;
        list.append(text);
    }
    return true;
}

template <class Map> bool readVariantMap(QDataStream& in, int minVariantBytes, Map& map, int depth)
{
    quint32 count = 0;
    if (!readCount(in, 4 + minVariantBytes, count))
        return false;
    for (quint32 i = 0; i < count; ++i) {
        QString key;
        QVariant element;
        if (!KRC_PropertyStream::readString(in, key) || !readVariantAt(in, element, depth + 1))
            return false;
        map.insert(key, element);
    }
    return true;
}

// A container of the given type, after its head; an empty one flagged null stays null.
bool readContainer(QDataStream& in, VariantHead const& head, QVariant& value, int depth)
{
    bool ok = false;
    switch (head.type) {
    case QMetaType::QVariantList: {
        QVariantList list;
        ok = readVariantList(in, head.size, list, depth);
        value = list;
        break;
    }
    case QMetaType::QStringList: {
        QStringList list;
        ok = readStringList(in, list);
        value = list;
        break;
    }
    case QMetaType::QVariantMap: {
        QVariantMap map;
        ok = readVariantMap(in, head.size, map, depth);
        value = map;
        break;
    }
    default: {
        QVariantHash hash;
        ok = readVariantMap(in, head.size, hash, depth);
        value = hash;
        break;
    }
    }
    if (ok && head.isNull && value == QVariant(QVariant::Type(head.type)))
        value = QVariant(QVariant::Type(head.type));
    return ok;
}

bool readVariantAt(QDataStream& in, QVariant& value, int depth)
{
    value = QVariant();
    if (in.status() != QDataStream::Ok || !in.device())
        return false;
    VariantHead head;
    if (!peekHead(in, head))
        return false;
    if (isSafeLeaf(head.type, in.version()) && enumFieldIsValid(in, head.size, head.type)
        && (!hasLength(head.type) || lengthFits(in, head.size))) {
        in >> value;
    } else if (isContainer(head.type) && depth < kMaxDepth) {
        in.skipRawData(head.size);
        if (!readContainer(in, head, value, depth))
            value = QVariant();
    } else {
        in.setStatus(QDataStream::ReadCorruptData);
    }
    if (in.status() != QDataStream::Ok) {
        value = QVariant();
        return false;
    }
    return true;
}

} // namespace

bool KRC_PropertyStream::readString(QDataStream& in, QString& text)
{
    if (in.status() != QDataStream::Ok)
        return false;
    if (in.device() && !lengthFits(in, 0)) {
        in.setStatus(QDataStream::ReadPastEnd);
        return false;
    }
    in >> text;
    return in.status() == QDataStream::Ok;
}

bool KRC_PropertyStream::readVariant(QDataStream& in, QVariant& value)
{
    return readVariantAt(in, value, 0);
}

bool KRC_PropertyStream::readFlag(QDataStream& in, bool& flag)
{
    if (in.status() != QDataStream::Ok)
        return false;
    qint32 number = 0;
    in >> number;
    if (in.status() != QDataStream::Ok)
        return false;
    flag = number != 0;
    return true;
}

bool KRC_PropertyStream::acceptsType(int type, int version)
{
    return isContainer(type) || isSafeLeaf(type, version);
}

void KRC_PropertyStream::writeString(QDataStream& out, QString const& text)
{
    out << text;
}

void KRC_PropertyStream::writeVariant(QDataStream& out, QVariant const& value)
{
    out << value;
}

void KRC_PropertyStream::writeFlag(QDataStream& out, bool flag)
{
    out << qint32(flag ? 1 : 0);
}

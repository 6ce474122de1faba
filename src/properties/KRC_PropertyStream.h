// Reading and writing the items of a stored property, safe against hostile bytes.
#pragma once

#include <QDataStream>
#include <QString>
#include <QVariant>

/// The item forms of a property blob: QString, QVariant and a flag as a 32-bit 1 or 0,
/// all in the form of the stream's version (6 and 12 are the ones in use).
///
/// Stored blobs come from files and are not trusted. Readers here never allocate by a
/// count they have not checked: a container's element count, and a string's or byte
/// array's length, is capped by the bytes left on a random-access device, nesting is
/// limited, and only value types whose
/// stream form Qt reads without an unchecked allocation are accepted. Any other type
/// tag, a short read or a bad length sets the stream's status and makes the read fail;
/// the stream is then to be abandoned. Each reader returns false as soon as the
/// stream's status is not Ok, also when it was bad before the call.
///
/// Accepted value types: invalid, every numeric type, QChar, QString, QByteArray,
/// QBitArray, QStringList, QVariantList, QVariantMap and QVariantHash (recursively),
/// QDate, QTime, QDateTime, QUrl, QUuid, QLocale, QRegularExpression, the
/// point/size/rect/line families, QFont, QColor, QKeySequence, QTextLength, QMatrix,
/// QTransform, QMatrix4x4 and the vector and quaternion types. Writing
/// takes any type, as QDataStream does.
/// Stateless; usable from any thread on a stream that thread owns.
class KRC_PropertyStream
{
public:
    static bool readString(QDataStream& in, QString& text);
    static bool readVariant(QDataStream& in, QVariant& value);
    static bool readFlag(QDataStream& in, bool& flag);
    /// Whether values of this type (QMetaType number) are read back from streams of
    /// the given version.
    static bool acceptsType(int type, int version);

    static void writeString(QDataStream& out, QString const& text);
    static void writeVariant(QDataStream& out, QVariant const& value);
    static void writeFlag(QDataStream& out, bool flag);
};

// The XML and dump vocabulary that the info field records share.
#pragma once

#include "infofields/KRC_InfoFieldDesc.h"

#include <QString>

class PO_XmlWriter;
class QXmlAttributes;

/// Element and attribute names, the text forms of kinds and sizes, and the pieces of
/// writing, reading and dumping that the five info field records have in common. Each
/// record keeps the rest of its format (which attributes, in which order) in its own
/// file pair. Threading: any; the constants are immutable.
namespace InfoFieldFormat {

extern QString const kField; // "field"
extern QString const kId; // "id"
extern QString const kName; // "name"
extern QString const kType; // "type"
extern QString const kComment; // "comment"
extern QString const kSize; // "size"
extern QString const kPosition; // "position"
extern QString const kValue; // "value"
extern QString const kDragName; // "dragName"
extern QString const kForDrag; // "for_drag", set on the writing context by a drag
extern QString const kImage; // "IMAGE"
extern QString const kText; // "TEXT"
extern QString const kTrue; // "true"
extern QString const kEmpty; // "EMPTY\n", the dump of a record without entries

/// "IMAGE" when the image bit is set, else "TEXT".
QString typeName(KRC_InfoFieldDesc::Type type);
/// "MINIMUM", "MAXIMUM", else "DEFAULT".
QString sizeName(KRC_InfoFieldDesc::Size size);

/// "type", then "comment" only with the comment bit.
void writeType(PO_XmlWriter& writer, KRC_InfoFieldDesc::Type type);
/// "type" written as "IMAGE" only for an image (the extra list's form), then "comment".
void writeImageType(PO_XmlWriter& writer, KRC_InfoFieldDesc::Type type);
/// "size" for minimum and maximum; nothing for the default.
void writeSize(PO_XmlWriter& writer, KRC_InfoFieldDesc::Size size);
/// 2 when "type" is "IMAGE", else 1; plus 16 when "comment" is "true".
KRC_InfoFieldDesc::Type readType(QXmlAttributes const& attributes);

/// Appends `line(entry)` for each entry, or "EMPTY\n" for an empty range.
template <class Range, class Line> void dumpEntries(QString& out, Range const& entries, Line line)
{
    if (entries.empty())
        out += kEmpty;
    for (auto const& entry : entries)
        out += line(entry);
}

} // namespace InfoFieldFormat

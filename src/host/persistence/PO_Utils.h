// Text forms of attribute values, shared by the writer and the readers.
#pragma once

#include <QByteArray>
#include <QString>

/// The one place where the persistence library fixes how values look as attribute
/// text, so that what PO_XmlWriter writes, the readers parse back exactly.
namespace PO_Utils {

/// "true" or "false".
QString boolToString(bool value);
/// Parses exactly "true" or "false" into `value`; false (and `value` untouched) otherwise.
bool parseBoolAttr(QString const& text, bool& value);
/// The shortest text that QString::toDouble reads back to the same bits
/// ("nan", "inf", "-inf" for the special values).
QString doubleToString(double value);
/// Base64 text of binary data.
QString binaryToString(unsigned char const* data, int length);
/// Strict base64 decoding; false on any character outside the alphabet or bad padding.
bool parseBinaryAttr(QString const& text, QByteArray& bytes);
/// Whether XML 1.0 can carry the character of code point `code`.
bool isXmlChar(uint code);
/// `text` with every character that XML 1.0 cannot carry replaced by U+FFFD.
QString xmlSafe(QString const& text);

} // namespace PO_Utils

#include "host/persistence/PO_Utils.h"

#include "host/base/UT_DoubleText.h"

#include <algorithm>

namespace PO_Utils {

namespace {

QLatin1String const trueText("true");
QLatin1String const falseText("false");

} // namespace

bool isXmlChar(uint code)
{
    return code == 0x9 || code == 0xA || code == 0xD || (code >= 0x20 && code <= 0xD7FF)
        || (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

QString boolToString(bool value)
{
    return value ? trueText : falseText;
}

bool parseBoolAttr(QString const& text, bool& value)
{
    if (text == trueText) {
        value = true;
        return true;
    }
    if (text == falseText) {
        value = false;
        return true;
    }
    return false;
}

QString doubleToString(double value)
{
    return UT_doubleToText(value);
}

QString binaryToString(unsigned char const* data, int length)
{
    if (!data || length <= 0)
        return QString(QLatin1String(""));
    return QString::fromLatin1(
        QByteArray::fromRawData(reinterpret_cast<char const*>(data), length).toBase64());
}

bool parseBinaryAttr(QString const& text, QByteArray& bytes)
{
    // The writer always pads; anything else did not come from it.
    if (text.size() % 4 != 0)
        return false;
    for (QChar const c : text) {
        if (c.unicode() > 0x7F)
            return false;
    }
    auto const result
        = QByteArray::fromBase64Encoding(text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (!result)
        return false;
    bytes = *result;
    return true;
}

QString xmlSafe(QString const& text)
{
    // Nearly every text holds neither control characters nor surrogates: one tight
    // pass over it answers those, and only the rest are looked at closely.
    auto const plain = [](QChar c) {
        ushort const code = c.unicode();
        return code >= 0x20 ? code < 0xD800 : (code == 0x9 || code == 0xA || code == 0xD);
    };
    if (std::all_of(text.begin(), text.end(), plain))
        return text;
    QString result;
    bool changed = false;
    for (int i = 0; i < text.size(); ++i) {
        uint code = text.at(i).unicode();
        int width = 1;
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            code = QChar::surrogateToUcs4(text.at(i), text.at(i + 1));
            width = 2;
        }
        if (isXmlChar(code)) {
            if (changed)
                result += text.mid(i, width);
        } else {
            if (!changed) {
                result = text.left(i);
                changed = true;
            }
            result += QChar(QChar::ReplacementCharacter);
        }
        i += width - 1;
    }
    return changed ? result : text;
}

} // namespace PO_Utils

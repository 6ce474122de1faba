#include "host/base/MISC_Translate.h"

#include <QCoreApplication>

namespace {

// Qt's translate takes its source texts as UTF-8; a text without a translation comes
// back as it went in, and only then does the source encoding matter.
QString translate(char const* context, char const* text, char const* disambiguation, int n,
    QString (*decode)(char const*, int))
{
    if (!text)
        return QString();
    QString const translated = QCoreApplication::translate(context, text, disambiguation, n);
    if (translated != QString::fromUtf8(text))
        return translated;
    QString source = decode(text, -1);
    if (n >= 0)
        source.replace(QLatin1String("%n"), QString::number(n));
    return source;
}

} // namespace

QString MISC_translateFromLatin1(char const* context, char const* text, char const* disambiguation, int n)
{
    return translate(context, text, disambiguation, n, &QString::fromLatin1);
}

QString MISC_translateFromUtf8(char const* context, char const* text, char const* disambiguation, int n)
{
    return translate(context, text, disambiguation, n, &QString::fromUtf8);
}

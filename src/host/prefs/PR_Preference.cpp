#include "host/prefs/PR_Preference.h"

#include "host/base/UT_DoubleText.h"

#include <QFile>
#include <QMap>
#include <QSaveFile>
#include <QTextCodec>
#include <QVariant>

PR_Preference* tuPref = nullptr;

namespace {

QLatin1String const boolKind("bool");
QLatin1String const intKind("int");
QLatin1String const doubleKind("double");
QLatin1String const stringKind("string");
QLatin1String const separator(" = ");

QString valueText(QVariant const& value)
{
    switch (value.type()) {
    case QVariant::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QVariant::Double:
        return UT_doubleToText(value.toDouble());
    default:
        return value.toString();
    }
}

QString kindOf(QVariant const& value)
{
    switch (value.type()) {
    case QVariant::Bool:
        return boolKind;
    case QVariant::Int:
        return intKind;
    case QVariant::Double:
        return doubleKind;
    default:
        return stringKind;
    }
}

QString escaped(QString const& text, bool escapeSpace)
{
    QString result;
    result.reserve(text.size());
    for (QChar const c : text) {
        switch (c.unicode()) {
        case '\\':
            result += QLatin1String("\\\\");
            break;
        case '\n':
            result += QLatin1String("\\n");
            break;
        case '\r':
            result += QLatin1String("\\r");
            break;
        case '\t':
            result += QLatin1String("\\t");
            break;
        case ' ':
            result += escapeSpace ? QLatin1String("\\s") : QLatin1String(" ");
            break;
        default:
            if (c.unicode() < 0x20 || c.unicode() == 0x7F)
                result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
            else
                result += c;
        }
    }
    return result;
}

// Undoes `escaped`; false on a bad escape.
bool unescaped(QString const& text, QString& result)
{
    result.clear();
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\\')) {
            result += text.at(i);
            continue;
        }
        if (++i >= text.size())
            return false;
        switch (text.at(i).unicode()) {
        case '\\':
            result += QLatin1Char('\\');
            break;
        case 'n':
            result += QLatin1Char('\n');
            break;
        case 'r':
            result += QLatin1Char('\r');
            break;
        case 't':
            result += QLatin1Char('\t');
            break;
        case 's':
            result += QLatin1Char(' ');
            break;
        case 'u': {
            bool ok = false;
            ushort const code = text.mid(i + 1, 4).toUShort(&ok, 16);
            if (!ok || i + 4 >= text.size())
                return false;
            result += QChar(code);
            i += 4;
            break;
        }
        default:
            return false;
        }
    }
    return true;
}

// The value that `text` stands for as a `kind`; invalid when it stands for none.
QVariant parsedValue(QString const& kind, QString const& text)
{
    bool ok = false;
    if (kind == boolKind) {
        if (text == QLatin1String("true") || text == QLatin1String("false"))
            return QVariant(text == QLatin1String("true"));
    } else if (kind == intKind) {
        int const value = text.toInt(&ok);
        if (ok)
            return QVariant(value);
    } else if (kind == doubleKind) {
        double const value = text.toDouble(&ok);
        if (ok)
            return QVariant(value);
    } else if (kind == stringKind) {
        return QVariant(text);
    }
    return QVariant();
}

using Store = QMap<QString, QVariant>;

// One line into `store`; false when the line is damaged.
bool parseLine(QString const& line, Store& store)
{
    if (line.trimmed().isEmpty() || line.startsWith(QLatin1Char('#')))
        return true;
    int const kindEnd = line.indexOf(QLatin1Char(' '));
    int const keyEnd = line.indexOf(separator, kindEnd + 1);
    if (kindEnd <= 0 || keyEnd <= kindEnd + 1)
        return false;
    QString const rawKey = line.mid(kindEnd + 1, keyEnd - kindEnd - 1);
    QString key;
    QString text;
    if (rawKey.contains(QLatin1Char(' ')) || !unescaped(rawKey, key)
        || !unescaped(line.mid(keyEnd + separator.size()), text))
        return false;
    QVariant const value = parsedValue(line.left(kindEnd), text);
    if (!value.isValid())
        return false;
    store.insert(key, value);
    return true;
}

} // namespace

class PR_Preference::PR_PreferencePrivate
{
public:
    Store values;
    QString errorString;
};

PR_Preference::PR_Preference(QObject* parent)
    : QObject(parent)
    , d(new PR_PreferencePrivate)
{
}

PR_Preference::~PR_Preference()
{
    delete d;
}

bool PR_Preference::getBool(QString const& key) const
{
    return getBoolValue(key, false);
}

bool PR_Preference::getBoolValue(QString const& key, bool defaultValue) const
{
    QVariant const value = d->values.value(key);
    switch (value.type()) {
    case QVariant::Bool:
        return value.toBool();
    case QVariant::Int:
        return value.toInt() != 0;
    case QVariant::String: {
        QVariant const parsed = parsedValue(boolKind, value.toString());
        return parsed.isValid() ? parsed.toBool() : defaultValue;
    }
    default:
        return defaultValue;
    }
}

int PR_Preference::getIntValue(QString const& key, int defaultValue) const
{
    QVariant const value = d->values.value(key);
    if (value.type() == QVariant::Bool || !value.isValid())
        return value.isValid() ? int(value.toBool()) : defaultValue;
    QVariant const parsed = parsedValue(intKind, valueText(value));
    return parsed.isValid() ? parsed.toInt() : defaultValue;
}

double PR_Preference::getDoubleValue(QString const& key, double defaultValue) const
{
    QVariant const value = d->values.value(key);
    if (value.type() == QVariant::Double)
        return value.toDouble();
    if (value.type() != QVariant::Int && value.type() != QVariant::String)
        return defaultValue;
    QVariant const parsed = parsedValue(doubleKind, value.toString());
    return parsed.isValid() ? parsed.toDouble() : defaultValue;
}

QString PR_Preference::getStringValue(QString const& key, QString const& defaultValue) const
{
    QVariant const value = d->values.value(key);
    return value.isValid() ? valueText(value) : defaultValue;
}

void PR_Preference::setBoolValue(QString const& key, bool value)
{
    setValue(key, QVariant(value));
}

void PR_Preference::setIntValue(QString const& key, int value)
{
    setValue(key, QVariant(value));
}

void PR_Preference::setDoubleValue(QString const& key, double value)
{
    setValue(key, QVariant(value));
}

void PR_Preference::setStringValue(QString const& key, QString const& value)
{
    setValue(key, QVariant(value));
}

bool PR_Preference::contains(QString const& key) const
{
    return d->values.contains(key);
}

QStringList PR_Preference::keys() const
{
    return d->values.keys();
}

void PR_Preference::remove(QString const& key)
{
    if (d->values.remove(key))
        emit preferenceChanged();
}

void PR_Preference::clear()
{
    replaceAll(Store());
}

bool PR_Preference::load(QString const& path)
{
    Store loaded;
    QString const error = readStore(path, loaded);
    d->errorString = error;
    replaceAll(error.isEmpty() ? loaded : Store());
    return error.isEmpty();
}

bool PR_Preference::save(QString const& path) const
{
    QByteArray content("# preferences: <kind> <key> = <value>\n");
    for (auto it = d->values.cbegin(); it != d->values.cend(); ++it) {
        content += (kindOf(it.value()) + QLatin1Char(' ') + escaped(it.key(), true) + separator
            + escaped(valueText(it.value()), false) + QLatin1Char('\n'))
                       .toUtf8();
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit()) {
        d->errorString = QStringLiteral("%1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

QString PR_Preference::errorString() const
{
    return d->errorString;
}

void PR_Preference::setValue(QString const& key, QVariant const& value)
{
    auto const found = d->values.constFind(key);
    if (found != d->values.constEnd() && found.value().type() == value.type() && found.value() == value)
        return;
    d->values.insert(key, value);
    emit preferenceChanged();
}

void PR_Preference::replaceAll(QMap<QString, QVariant> const& values)
{
    if (values == d->values)
        return;
    d->values = values;
    emit preferenceChanged();
}

QString PR_Preference::readStore(QString const& path, QMap<QString, QVariant>& store)
{
    QFile file(path);
    if (!file.exists())
        return QString();
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("%1: %2").arg(path, file.errorString());
    QByteArray const bytes = file.readAll();
    QTextCodec::ConverterState state;
    QString const text
        = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars > 0)
        return QStringLiteral("%1: not UTF-8 text").arg(path);
    QStringList const lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        QString line = lines.at(i);
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        if (!parseLine(line, store))
            return QStringLiteral("%1:%2: damaged preference line").arg(path).arg(i + 1);
    }
    return QString();
}

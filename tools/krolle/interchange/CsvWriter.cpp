#include "CsvWriter.h"

#include <QJsonArray>
#include <QStringList>

namespace {

const QString kLineEnd = QStringLiteral("\r\n");

QString field(const QString& text)
{
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')) && !text.contains(QLatin1Char('\n'))
        && !text.contains(QLatin1Char('\r')))
        return text;
    QString quoted = text;
    quoted.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

QString row(const QStringList& fields)
{
    QStringList quoted;
    for (const QString& text : fields)
        quoted << field(text);
    return quoted.join(QLatin1Char(',')) + kLineEnd;
}

QString text(const QJsonObject& object, const char* key)
{
    const QJsonValue value = object.value(QLatin1String(key));
    return value.isDouble() ? QString::number(value.toInt()) : value.toString();
}

QStringList cells(const QJsonObject& shot, const QJsonObject& object, const QString& panel)
{
    const QJsonObject timecode = object.value(QStringLiteral("timecode")).toObject();
    return { text(shot, "act"), text(shot, "sequence"), text(shot, "name"), panel, text(object, "firstFrame"),
        text(object, "lastFrame"), text(object, "length"), text(timecode, "in"), text(timecode, "out") };
}

} // namespace

QString CsvWriter::write(const QJsonObject& outline, bool byShot)
{
    QString csv = row({ QStringLiteral("act"), QStringLiteral("sequence"), QStringLiteral("shot"),
        QStringLiteral("panel"), QStringLiteral("first"), QStringLiteral("last"), QStringLiteral("length"),
        QStringLiteral("in"), QStringLiteral("out") });
    for (const QJsonValue& value : outline.value(QStringLiteral("shots")).toArray()) {
        const QJsonObject shot = value.toObject();
        if (byShot) {
            csv += row(cells(shot, shot, QString()));
            continue;
        }
        for (const QJsonValue& panel : shot.value(QStringLiteral("panels")).toArray())
            csv += row(cells(shot, panel.toObject(), text(panel.toObject(), "name")));
    }
    return csv;
}

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

QStringList cells(const QJsonObject& shot, const QJsonObject& object, const QString& panel, const QStringList& fields)
{
    const QJsonObject timecode = object.value(QStringLiteral("timecode")).toObject();
    QStringList row { text(shot, "act"), text(shot, "sequence"), text(shot, "name"), panel, text(object, "firstFrame"),
        text(object, "lastFrame"), text(object, "length"), text(timecode, "in"), text(timecode, "out") };
    const QJsonObject values = object.value(QStringLiteral("fields")).toObject();
    for (const QString& field : fields)
        row << values.value(field).toString();
    const QJsonObject tracking = object.value(QStringLiteral("tracking")).toObject();
    if (!tracking.isEmpty())
        row << (tracking.value(QStringLiteral("tracked")).toBool() ? QStringLiteral("true") : QStringLiteral("false"))
            << tracking.value(QStringLiteral("date")).toString();
    else
        row << QString() << QString();
    return row;
}

} // namespace

QString CsvWriter::write(const QJsonObject& outline, bool byShot)
{
    QStringList fields;
    for (const QJsonValue& name : outline.value(QStringLiteral("fieldNames")).toArray())
        fields << name.toString();
    QString csv = row(QStringList { QStringLiteral("act"), QStringLiteral("sequence"), QStringLiteral("shot"),
                          QStringLiteral("panel"), QStringLiteral("first"), QStringLiteral("last"),
                          QStringLiteral("length"), QStringLiteral("in"), QStringLiteral("out") }
        + fields + QStringList { QStringLiteral("tracked"), QStringLiteral("tracking date") });
    for (const QJsonValue& value : outline.value(QStringLiteral("shots")).toArray()) {
        const QJsonObject shot = value.toObject();
        if (byShot) {
            csv += row(cells(shot, shot, QString(), fields));
            continue;
        }
        for (const QJsonValue& panel : shot.value(QStringLiteral("panels")).toArray())
            csv += row(cells(shot, panel.toObject(), text(panel.toObject(), "name"), fields));
    }
    return csv;
}

#include "AtCommand.h"

#include "Console.h"
#include "ObjectJson.h"
#include "ProjectDocument.h"
#include "TextTable.h"
#include "Timecode.h"

#include "project/KRC_KrolleProject.h"

#include <QJsonArray>

namespace {

const int kSchemaVersion = 1;
const QString kPrevious = QStringLiteral("previous");
const QString kNext = QStringLiteral("next");

QJsonObject side(
    const KRC_KrolleProject& view, const ObjectJson& objects, unsigned frame, const QString& prefer)
{
    const auto priority = prefer == kNext ? KRC_KrolleProject::PreferNext : KRC_KrolleProject::PreferPrevious;
    const Krolle::Shot_t shot = view.getShotAt(frame, priority);
    return QJsonObject { { QStringLiteral("prefer"), prefer },
        { QStringLiteral("act"), shot.isValid() ? QJsonValue(shot.actName()) : QJsonValue() },
        { QStringLiteral("sequence"), shot.isValid() ? objects.sequenceOf(shot) : QJsonValue() },
        { QStringLiteral("shot"), objects.shot(shot) },
        { QStringLiteral("panel"), objects.panel(view.getPanelAt(frame, priority)) } };
}

QString framesOf(const QJsonObject& object)
{
    return QStringLiteral("frames %1-%2")
        .arg(object.value(QStringLiteral("firstFrame")).toInt())
        .arg(object.value(QStringLiteral("lastFrame")).toInt());
}

QString describeObject(const char* what, const QJsonValue& value)
{
    if (value.isNull())
        return QStringLiteral("-");
    const QJsonObject object = value.toObject();
    return QStringLiteral("%1 (%2 %3, %4)")
        .arg(object.value(QStringLiteral("name")).toString(), QLatin1String(what),
            QString::number(object.value(QStringLiteral("number")).toInt()), framesOf(object));
}

QString table(const QJsonObject& answer)
{
    QString text = QStringLiteral("frame %1 of %2")
                       .arg(QString::number(answer.value(QStringLiteral("frame")).toInt()),
                           answer.value(QStringLiteral("file")).toString());
    if (answer.contains(QStringLiteral("timecode")))
        text += QStringLiteral(" (%1 at %2 fps)")
                    .arg(answer.value(QStringLiteral("timecode")).toString())
                    .arg(answer.value(QStringLiteral("fps")).toInt());
    text += QLatin1Char('\n');
    const QJsonArray sides = answer.value(QStringLiteral("sides")).toArray();
    TextTable table;
    if (sides.size() > 1)
        table.setHeader({ QString(), QStringLiteral("previous side"), QStringLiteral("next side") });
    const QJsonValue transition = answer.value(QStringLiteral("transition"));
    if (!transition.isNull())
        table.addRow({ QStringLiteral("transition"), describeObject("transition", transition) });
    QStringList act { QStringLiteral("act") };
    QStringList sequence { QStringLiteral("sequence") };
    QStringList shot { QStringLiteral("shot") };
    QStringList panel { QStringLiteral("panel") };
    for (const QJsonValue& value : sides) {
        const QJsonObject side = value.toObject();
        act << side.value(QStringLiteral("act")).toString(QStringLiteral("-"));
        sequence << side.value(QStringLiteral("sequence")).toString(QStringLiteral("-"));
        shot << describeObject("shot", side.value(QStringLiteral("shot")));
        panel << describeObject("panel", side.value(QStringLiteral("panel")));
    }
    table.addRow(act);
    if (answer.value(QStringLiteral("sequencesExist")).toBool())
        table.addRow(sequence);
    table.addRow(shot);
    table.addRow(panel);
    return text + table.toString();
}

} // namespace

AtCommand::AtCommand()
    : Command(
        QStringLiteral("at"), QStringLiteral("show the act, sequence, shot, panel and transition at a frame"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    parser.addPositional(QStringLiteral("FRAME"), QStringLiteral("project frame, counted from 1"));
    parser.addOption(QStringLiteral("--prefer"), QStringLiteral("previous|next"),
        QStringLiteral("under a transition, show only the shot before or after it"));
    parser.addOption(QStringLiteral("--fps"), QStringLiteral("F"),
        QStringLiteral("also show timecodes at F frames per second"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
}

ExitStatus AtCommand::run(const ArgumentValues& arguments)
{
    const unsigned frame = arguments.positionalNumber(QStringLiteral("FRAME"), 1, 0xFFFFFFFEu);
    const QString prefer = arguments.choice(QStringLiteral("--prefer"), { kPrevious, kNext }, QString());
    const unsigned fps = arguments.number(QStringLiteral("--fps"), 0, 1, Timecode::kMostFps);
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    const KRC_KrolleProject& view = document.view();
    const ObjectJson objects(view, fps);

    const Krolle::Trans_t transition = view.getTransAt(frame);
    QStringList asked { prefer.isNull() ? kPrevious : prefer };
    if (prefer.isNull() && transition.isValid())
        asked << kNext;
    QJsonArray sides;
    for (const QString& side : asked)
        sides.append(::side(view, objects, frame, side));
    const QJsonObject first = sides.first().toObject();
    if (transition.isInvalid() && first.value(QStringLiteral("shot")).isNull())
        throw ToolError::failure(
            QStringLiteral("frame %1 is outside the shots of %2, which end at frame %3")
                .arg(QString::number(frame), document.path(), QString::number(view.getNumOfFrames())));
    QJsonObject answer { { QStringLiteral("krolle"), QStringLiteral("at") },
        { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
        { QStringLiteral("frame"), static_cast<qint64>(frame) },
        { QStringLiteral("fps"), fps ? QJsonValue(static_cast<int>(fps)) : QJsonValue() },
        { QStringLiteral("sequencesExist"), view.sequenceExists() },
        { QStringLiteral("transition"), objects.transition(transition) },
        { QStringLiteral("sides"), sides } };
    if (fps)
        answer.insert(QStringLiteral("timecode"), Timecode::ofFrame(frame, fps));
    if (arguments.isSet(QStringLiteral("--json")))
        Console::outJson(answer);
    else
        Console::out(table(answer));
    return ExitStatus::Success;
}

#include "AtCommand.h"

#include "Console.h"
#include "ObjectJson.h"
#include "ProjectDocument.h"
#include "TextTable.h"
#include "Timecode.h"

#include "project/KRC_KrolleProject.h"

#include <QJsonArray>
#include <QRegularExpression>

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
        text += QStringLiteral(" (%1 at %2 fps%3)")
                    .arg(answer.value(QStringLiteral("timecode")).toString(),
                        QString::number(answer.value(QStringLiteral("fps")).toDouble()),
                        answer.value(QStringLiteral("dropFrame")).toBool() ? QStringLiteral(" drop-frame")
                                                                             : QString());
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

// The frames of the command line, with "-" standing for the words of standard input.
QStringList frameWords(const QStringList& given)
{
    QStringList words;
    for (const QString& word : given) {
        if (word == QLatin1String("-"))
            words << QString::fromUtf8(Console::readIn()).split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
        else
            words << word;
    }
    if (words.isEmpty())
        throw ToolError::usage(QStringLiteral("standard input holds no FRAME"));
    return words;
}

// The "at" document of one frame; a frame past the shots is a failure.
QJsonObject answerAt(const ProjectDocument& document, const ObjectJson& objects, unsigned frame,
    const QString& prefer, const Timecode& clock)
{
    const KRC_KrolleProject& view = document.view();
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
        { QStringLiteral("sequencesExist"), view.sequenceExists() },
        { QStringLiteral("transition"), objects.transition(transition) },
        { QStringLiteral("sides"), sides } };
    ObjectJson::addClock(answer, clock);
    if (clock.isValid())
        answer.insert(QStringLiteral("timecode"), clock.ofFrame(frame));
    return answer;
}

} // namespace

AtCommand::AtCommand()
    : Command(
        QStringLiteral("at"), QStringLiteral("show the act, sequence, shot, panel and transition at a frame"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    parser.addPositionalList(QStringLiteral("FRAME"),
        QStringLiteral("project frame, counted from 1, or a timecode with --fps; several, or - to read them from "
                       "standard input"));
    parser.addOption(QStringLiteral("--prefer"), QStringLiteral("previous|next"),
        QStringLiteral("under a transition, show only the shot before or after it"));
    parser.addTimecodeOptions(QStringLiteral("also show timecodes at F frames per second (24, 29.97...)"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.setEpilogue(QStringLiteral("Several frames are answered from one load, in the order given.\n"
                                      "\n"
                                      "example: krolle at board.xml 00:00:08:12 --fps 24\n"
                                      "         seq 1 10 450 | krolle at board.xml -"));
}

ExitStatus AtCommand::run(const ArgumentValues& arguments)
{
    const QString prefer = arguments.choice(QStringLiteral("--prefer"), { kPrevious, kNext }, QString());
    const Timecode clock = arguments.timecode();
    QVector<unsigned> frames;
    for (const QString& word : frameWords(arguments.positionals(QStringLiteral("FRAME"))))
        frames.append(arguments.frame(QStringLiteral("FRAME"), word, clock));
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    const ObjectJson objects(document.view(), clock);
    QJsonArray answers;
    for (unsigned frame : frames)
        answers.append(answerAt(document, objects, frame, prefer, clock));
    if (answers.size() == 1 && arguments.isSet(QStringLiteral("--json"))) {
        Console::outJson(answers.first().toObject());
    } else if (arguments.isSet(QStringLiteral("--json"))) {
        Console::outJson(QJsonObject { { QStringLiteral("krolle"), QStringLiteral("at") },
            { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
            { QStringLiteral("answers"), answers } });
    } else {
        QStringList tables;
        for (const QJsonValue& answer : answers)
            tables << table(answer.toObject());
        Console::out(tables.join(QLatin1Char('\n')));
    }
    return ExitStatus::Success;
}

#include "ExportCommand.h"

#include "Console.h"
#include "ObjectJson.h"
#include "OutputFile.h"
#include "ProjectDocument.h"
#include "StoryboardOutline.h"
#include "Timecode.h"
#include "interchange/CsvWriter.h"
#include "interchange/EdlWriter.h"
#include "interchange/OtioWriter.h"
#include "interchange/StoryboardCut.h"

#include "project/KRC_KrolleProject.h"

#include <QFileInfo>
#include <QJsonDocument>

namespace {

const unsigned kDefaultFps = 24;
// Where an edit's record starts unless --start-tc says otherwise.
const QString kRecordStart = QStringLiteral("01:00:00:00");

// clock: the rate and the start of record.
QByteArray document(const ProjectDocument& project, const QString& format, bool byShot, const Timecode& clock)
{
    if (format == QLatin1String("csv")) {
        QJsonObject outline = StoryboardOutline::read(project.view(), project.path(), clock);
        StoryboardOutline::addFieldValues(outline, project.view());
        StoryboardOutline::addToPanels(outline, project.view(), QStringLiteral("tracking"), &StoryboardCut::trackingOf);
        return CsvWriter::write(outline, byShot).toUtf8();
    }
    const StoryboardCut cut = StoryboardCut::read(project.view(),
        byShot ? StoryboardCut::By::Shot : StoryboardCut::By::Panel, QFileInfo(project.path()).completeBaseName());
    if (format == QLatin1String("edl"))
        return EdlWriter::write(cut, clock).toUtf8();
    return QJsonDocument(OtioWriter::write(cut, clock)).toJson(QJsonDocument::Indented);
}

// The cut's clock: the rate and --start-tc, or the customary start of record for EDL and OTIO.
Timecode clockOf(const ArgumentValues& arguments, const QString& format)
{
    const Timecode clock = arguments.timecode(FrameRate(kDefaultFps, 1));
    if (arguments.isSet(QStringLiteral("--start-tc")) || format == QLatin1String("csv"))
        return clock;
    unsigned long long start = 0;
    QString unused;
    clock.count(kRecordStart, &start, &unused);
    return Timecode(clock.rate(), start);
}

} // namespace

ExportCommand::ExportCommand()
    : Command(QStringLiteral("export"), QStringLiteral("write the storyboard as an OTIO cut, a CMX 3600 EDL or a CSV shot list"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    parser.addOption(QStringLiteral("--format"), QStringLiteral("otio|edl|csv"), QStringLiteral("what to write"), true);
    parser.addOption(QStringLiteral("--by"), QStringLiteral("panel|shot"), QStringLiteral("one clip or row per panel (default) or per shot"));
    parser.addTimecodeOptions(QStringLiteral("frames per second of the times written (24; 29.97, 24000/1001...)"));
    parser.addOption(QStringLiteral("--out"), QStringLiteral("PATH"), QStringLiteral("file to write (standard output when absent or -)"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("with --out, report what was written as JSON"));
    parser.setEpilogue(QStringLiteral(
        "OTIO: one video track, a clip per panel named SHOT/PANEL, a dissolve centred on the cut of each\n"
        "transition, a marker at each shot, the storyboard's facts under the \"krolle\" metadata key.\n"
        "EDL: reel AX, record from 01:00:00:00 (or --start-tc), transitions as dissolves. CSV: RFC 4180, a header row.\n"
        "\n"
        "example: krolle export board.xml --format otio --out board.otio"));
}

ExitStatus ExportCommand::run(const ArgumentValues& arguments)
{
    const QString format = arguments.choice(QStringLiteral("--format"),
        { QStringLiteral("otio"), QStringLiteral("edl"), QStringLiteral("csv") }, QStringLiteral("otio"));
    const bool byShot = arguments.choice(QStringLiteral("--by"), { QStringLiteral("panel"), QStringLiteral("shot") },
                            QStringLiteral("panel"))
        == QLatin1String("shot");
    const Timecode clock = clockOf(arguments, format);
    const QString out = arguments.value(QStringLiteral("--out"));
    ProjectDocument project;
    project.open(arguments.positional(QStringLiteral("FILE")));
    const QByteArray content = document(project, format, byShot, clock);
    OutputFile::write(out, content);
    if (OutputFile::isStandardOutput(out))
        return ExitStatus::Success;
    const QJsonObject report { { QStringLiteral("krolle"), QStringLiteral("export") },
        { QStringLiteral("file"), project.path() }, { QStringLiteral("out"), out }, { QStringLiteral("format"), format },
        { QStringLiteral("by"), byShot ? QStringLiteral("shot") : QStringLiteral("panel") },
        { QStringLiteral("bytes"), content.size() } };
    QJsonObject described = report;
    ObjectJson::addClock(described, clock);
    if (arguments.isSet(QStringLiteral("--json")))
        Console::outJson(described);
    else
        Console::out(QStringLiteral("wrote %1 (%2, one clip per %3, %4 fps) from %5\n")
                         .arg(out, format, byShot ? QStringLiteral("shot") : QStringLiteral("panel"))
                         .arg(clock.rate().toString())
                         .arg(project.path()));
    return ExitStatus::Success;
}

#include "ImportCommand.h"

#include "Console.h"
#include "ProjectDocument.h"
#include "ProjectSummary.h"
#include "Timecode.h"
#include "interchange/OtioReader.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

namespace {

// A cut larger than this is not a storyboard's.
const qint64 kMostBytes = 1024LL * 1024 * 1024;

QByteArray readAll(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw ToolError::file(QStringLiteral("cannot read %1: no such file").arg(path));
    if (!info.isFile())
        throw ToolError::file(QStringLiteral("cannot read %1: not a regular file").arg(path));
    if (info.size() > kMostBytes)
        throw ToolError::file(QStringLiteral("cannot read %1: larger than %2 bytes").arg(path).arg(kMostBytes));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ToolError::file(QStringLiteral("cannot read %1: %2").arg(path, file.errorString()));
    return file.readAll();
}

} // namespace

ImportCommand::ImportCommand()
    : Command(QStringLiteral("import"), QStringLiteral("build a project from an OpenTimelineIO cut"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("CUT"), QStringLiteral("OpenTimelineIO file (.otio) to read"));
    parser.addOption(QStringLiteral("--out"), QStringLiteral("FILE"), QStringLiteral("project file to write"), true);
    parser.addOption(QStringLiteral("--fps"), QStringLiteral("F"),
        QStringLiteral("frames per second of the board (the cut's own rate when absent)"));
    parser.addFlag(QStringLiteral("--force"), QStringLiteral("overwrite the project file if it exists"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("report what was built as JSON"));
    parser.setEpilogue(QStringLiteral(
        "A cut that krolle exported comes back as the storyboard it was. Any other cut gives one shot per\n"
        "item of its first video track (clips, nested stacks and gaps) and a transition per transition;\n"
        "what has no place on a board (other tracks, effects, markers) is listed on standard error.\n"
        "\n"
        "example: krolle import edit.otio --out board.xml"));
}

ExitStatus ImportCommand::run(const ArgumentValues& arguments)
{
    const QString cut = arguments.positional(QStringLiteral("CUT"));
    const QString out = arguments.value(QStringLiteral("--out"));
    const FrameRate rate = arguments.frameRate();
    refuseToOverwrite(out, arguments);
    const ImportedBoard board = OtioReader::read(readAll(cut), cut, rate.isValid() ? rate.framesPerSecond() : 0);
    if (board.shots.isEmpty())
        throw ToolError::file(QStringLiteral("cannot read %1: the cut has no clip to make a shot of").arg(cut));
    for (const QString& skipped : board.skipped)
        Console::err(QStringLiteral("krolle import: %1: skipped %2\n").arg(cut, skipped));
    ProjectDocument document;
    try {
        board.plan().build(document);
        board.applyPanelFacts(document.view());
    } catch (const ToolError& error) {
        throw ToolError::file(QStringLiteral("cannot build a board from %1: %2").arg(cut, error.message()));
    }
    document.save(out);
    const ProjectSummary summary(document.view());
    if (arguments.isSet(QStringLiteral("--json")) && !ProjectDocument::isStandardStream(out))
        Console::outJson({ { QStringLiteral("krolle"), QStringLiteral("import") }, { QStringLiteral("file"), cut },
            { QStringLiteral("out"), out }, { QStringLiteral("counts"), summary.json() },
            { QStringLiteral("skipped"), QJsonArray::fromStringList(board.skipped) } });
    else
        reportWritten(out, QStringLiteral("wrote %1: %2\n").arg(out, summary.text()));
    return ExitStatus::Success;
}

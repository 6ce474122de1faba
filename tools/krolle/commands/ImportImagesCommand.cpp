#include "ImportImagesCommand.h"

#include "Console.h"
#include "ProjectDocument.h"
#include "ProjectSummary.h"
#include "Timecode.h"
#include "board/DrawingFolder.h"
#include "board/DrawingGroups.h"
#include "board/DrawingKeys.h"

#include "host/context/TUDbSceneData.h"
#include "host/engine/SC_ProjectCommon.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

namespace {

const unsigned kDefaultFps = 24;
const int kSchemaVersion = 1;
const unsigned kDefaultSeconds = 2;
const unsigned kLongestPanel = 1000000;
const QString kDefaultField = QStringLiteral("Sketch");

DrawingGroups::By grouping(const ArgumentValues& arguments)
{
    const QString by = arguments.choice(QStringLiteral("--group"),
        { QStringLiteral("image"), QStringLiteral("shot"), QStringLiteral("sequence") }, QStringLiteral("image"));
    if (by == QLatin1String("shot"))
        return DrawingGroups::By::Shot;
    return by == QLatin1String("sequence") ? DrawingGroups::By::Sequence : DrawingGroups::By::Image;
}

QStringList fileNames(const DrawingFolder& folder)
{
    QStringList names;
    for (const DrawingFolder::Drawing& drawing : folder.drawings)
        names << drawing.fileName;
    return names;
}

} // namespace

ImportImagesCommand::ImportImagesCommand()
    : Command(QStringLiteral("import-images"), QStringLiteral("build a board from a folder of drawings"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("DIR"), QStringLiteral("folder of images (PNG, JPEG, ... as Qt reads them)"));
    parser.addOption(QStringLiteral("--out"), QStringLiteral("FILE"), QStringLiteral("project file to write"), true);
    parser.addOption(QStringLiteral("--length"), QStringLiteral("FRAMES"),
        QStringLiteral("frames of each panel (two seconds at --fps)"));
    parser.addOption(QStringLiteral("--fps"), QStringLiteral("F"), QStringLiteral("frames per second of the board (24)"));
    parser.addOption(QStringLiteral("--group"), QStringLiteral("image|shot|sequence"),
        QStringLiteral("one shot per image (default), shots or sequences by file name"));
    parser.addOption(QStringLiteral("--field"), QStringLiteral("NAME"),
        QStringLiteral("the panels' image field (\"Sketch\")"));
    parser.addFlag(QStringLiteral("--copy"), QStringLiteral("copy the images to FILE's folder, in BOARD_images (default)"));
    parser.addFlag(QStringLiteral("--link"), QStringLiteral("name the images where they are"));
    parser.addFlag(QStringLiteral("--force"), QStringLiteral("overwrite the project file if it exists"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("report what was built as JSON"));
    parser.setEpilogue(QStringLiteral(
        "Images come in natural order of their names (p2 before p10). With --group shot, names such as\n"
        "SH010_p2.png or sh010-2.jpg put panels in shots, and SQ020_SH010_p1.png also in a sequence; with\n"
        "--group sequence each image is a shot and the name before its number (or an SQ prefix) its\n"
        "sequence. Files that are not images are named on standard error and skipped.\n"
        "\n"
        "example: krolle import-images drawings --out board.xml --group shot"));
}

ExitStatus ImportImagesCommand::run(const ArgumentValues& arguments)
{
    const QString dir = arguments.positional(QStringLiteral("DIR"));
    const QString out = arguments.value(QStringLiteral("--out"));
    const FrameRate rate = arguments.frameRate(FrameRate(kDefaultFps, 1));
    const unsigned length = arguments.length(
        QStringLiteral("--length"), rate.nominal() * kDefaultSeconds, 1, kLongestPanel, Timecode(rate));
    const DrawingGroups::By by = grouping(arguments);
    const QString field = arguments.isSet(QStringLiteral("--field")) ? arguments.value(QStringLiteral("--field")) : kDefaultField;
    const bool link = arguments.isSet(QStringLiteral("--link"));
    if (link && arguments.isSet(QStringLiteral("--copy")))
        throw ToolError::usage(QStringLiteral("--copy and --link exclude each other"));
    if (field.trimmed().isEmpty())
        throw ToolError::usage(QStringLiteral("--field needs a name"));
    if (QFileInfo::exists(out) && !arguments.isSet(QStringLiteral("--force")))
        throw ToolError::failure(QStringLiteral("%1 already exists; choose another name or add --force").arg(out));

    const DrawingFolder folder = DrawingFolder::read(dir);
    for (const QString& skipped : folder.skipped)
        Console::err(QStringLiteral("krolle import-images: %1\n").arg(skipped));
    if (folder.drawings.isEmpty())
        throw ToolError::failure(QStringLiteral("%1 holds no image to make a panel of").arg(dir));

    const QString projectDir = QFileInfo(out).absolutePath();
    const QString where = link ? QFileInfo(dir).absoluteFilePath() : DrawingKeys::copyFolder(out);
    const ImportedBoard board
        = DrawingGroups::board(fileNames(folder), DrawingKeys::keys(folder, projectDir, where), by, length, field);
    ProjectDocument document;
    board.plan().build(document);
    board.applyPanelFacts(document.view());
    document.project()->projectCommon()->dbSceneData()->setProjectDir(projectDir);
    if (!link)
        DrawingKeys::copy(folder, where);
    document.save(out);

    const ProjectSummary summary(document.view());
    const QString images = QDir(projectDir).relativeFilePath(where);
    if (arguments.isSet(QStringLiteral("--json"))) {
        Console::outJson({ { QStringLiteral("krolle"), QStringLiteral("import-images") },
            { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("folder"), dir },
            { QStringLiteral("out"), out }, { QStringLiteral("counts"), summary.json() },
            { QStringLiteral("images"), folder.drawings.size() }, { QStringLiteral("field"), field },
            { QStringLiteral("copied"), !link }, { QStringLiteral("imageFolder"), images },
            { QStringLiteral("skipped"), QJsonArray::fromStringList(folder.skipped) } });
        return ExitStatus::Success;
    }
    Console::out(QStringLiteral("wrote %1: %2\n%3 %4 images %5, field \"%6\"\n")
                     .arg(out, summary.text(), link ? QStringLiteral("linked") : QStringLiteral("copied"))
                     .arg(folder.drawings.size())
                     .arg((link ? QStringLiteral("in ") : QStringLiteral("to ")) + images, field));
    return ExitStatus::Success;
}

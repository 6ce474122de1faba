#include "PdfCommand.h"

#include "Console.h"
#include "ProjectDocument.h"
#include "Timecode.h"
#include "board/BoardPrinter.h"
#include "board/DrawingKeys.h"

#include "host/context/TUDbSceneData.h"
#include "host/engine/SC_ProjectCommon.h"
#include "infofields/KRC_InfoFieldDesc.h"
#include "project/KRC_KrolleProject.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QRegularExpression>
#include <QSaveFile>

namespace {

const unsigned kDefaultFps = 24;
const int kSchemaVersion = 1;
const int kMostCells = 12;

void readLayout(const ArgumentValues& arguments, PrintSettings& settings)
{
    settings.landscape = arguments.isSet(QStringLiteral("--landscape"));
    settings.columns = settings.landscape ? 3 : 2;
    settings.rows = settings.landscape ? 2 : 3;
    if (!arguments.isSet(QStringLiteral("--layout")))
        return;
    const QString layout = arguments.value(QStringLiteral("--layout"));
    static const QRegularExpression grid(QStringLiteral("^([1-9][0-9]?)x([1-9][0-9]?)$"));
    const QRegularExpressionMatch match = grid.match(layout);
    if (!match.hasMatch() || match.captured(1).toInt() > kMostCells || match.captured(2).toInt() > kMostCells)
        throw ToolError::usage(
            QStringLiteral("--layout takes COLSxROWS, each from 1 to %1, not '%2'").arg(kMostCells).arg(layout));
    settings.columns = match.captured(1).toInt();
    settings.rows = match.captured(2).toInt();
}

QPageSize::PageSizeId pageSize(const ArgumentValues& arguments)
{
    const QString page = arguments.choice(QStringLiteral("--page"),
        { QStringLiteral("a4"), QStringLiteral("letter"), QStringLiteral("a3") }, QStringLiteral("a4"));
    if (page == QLatin1String("letter"))
        return QPageSize::Letter;
    return page == QLatin1String("a3") ? QPageSize::A3 : QPageSize::A4;
}

// The visible panel text fields: what a page shows when --fields is not given.
QStringList defaultFields(const KRC_KrolleProject& view)
{
    QStringList names;
    for (KRC_InfoFieldDesc const* desc : view.visiblePanelInfoFieldDescList()) {
        if (!desc->isImage())
            names << desc->name();
    }
    return names;
}

} // namespace

PdfCommand::PdfCommand()
    : Command(QStringLiteral("pdf"), QStringLiteral("print the storyboard's panels to PDF pages"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    parser.addOption(QStringLiteral("--out"), QStringLiteral("BOARD.pdf"), QStringLiteral("PDF file to write"), true);
    parser.addOption(QStringLiteral("--layout"), QStringLiteral("COLSxROWS"),
        QStringLiteral("panels across and down a page (2x3; 3x2 in landscape)"));
    parser.addOption(QStringLiteral("--page"), QStringLiteral("a4|letter|a3"), QStringLiteral("paper size (a4)"));
    parser.addFlag(QStringLiteral("--landscape"), QStringLiteral("turn the paper"));
    parser.addOption(QStringLiteral("--fields"), QStringLiteral("NAME,..."),
        QStringLiteral("panel fields printed under each panel (the visible text fields)"));
    parser.addOption(QStringLiteral("--from"), QStringLiteral("SHOT"), QStringLiteral("first shot to print"));
    parser.addOption(QStringLiteral("--to"), QStringLiteral("SHOT"), QStringLiteral("last shot to print"));
    parser.addTimecodeOptions(QStringLiteral("frames per second of the timecodes (24)"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("report what was written as JSON"));
    parser.setEpilogue(QStringLiteral(
        "Each panel shows its picture (its first image field with a value) or a placeholder naming its\n"
        "layers, its shot and panel names, its length in frames and as a timecode, and the fields. Each\n"
        "page is headed by the project's name, its acts and sequences and its number. Panels whose PDF\n"
        "options disable their export are left out.\n"
        "\n"
        "example: krolle pdf board.xml --out board.pdf --landscape --fields Dialogue,Action"));
}

ExitStatus PdfCommand::run(const ArgumentValues& arguments)
{
    PrintSettings settings;
    readLayout(arguments, settings);
    settings.page = pageSize(arguments);
    settings.clock = arguments.timecode(FrameRate(kDefaultFps, 1));
    const QString out = arguments.value(QStringLiteral("--out"));
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    const KRC_KrolleProject& view = document.view();
    settings.file = document.path();
    settings.fields = arguments.isSet(QStringLiteral("--fields"))
        ? arguments.value(QStringLiteral("--fields")).split(QLatin1Char(','), Qt::SkipEmptyParts)
        : defaultFields(view);
    if (arguments.isSet(QStringLiteral("--from")))
        settings.fromShot = arguments.value(QStringLiteral("--from"));
    if (arguments.isSet(QStringLiteral("--to")))
        settings.toShot = arguments.value(QStringLiteral("--to"));
    settings.title = view.title().isEmpty() ? QFileInfo(document.path()).completeBaseName() : view.title();
    settings.imageFolders = DrawingKeys::searchFolders(
        document.path(), document.project()->projectCommon()->dbSceneData()->projectDir());

    const BoardPrinter printer(view, settings);
    if (printer.panelCount() == 0)
        throw ToolError::failure(QStringLiteral("%1 has no panel to print in that range").arg(document.path()));
    QSaveFile file(out);
    if (!file.open(QIODevice::WriteOnly))
        throw ToolError::file(QStringLiteral("cannot write %1: %2").arg(out, file.errorString()));
    if (!printer.print(file) || !file.commit())
        throw ToolError::file(QStringLiteral("cannot write %1: %2").arg(out, file.errorString()));

    if (arguments.isSet(QStringLiteral("--json"))) {
        Console::outJson({ { QStringLiteral("krolle"), QStringLiteral("pdf") },
            { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
            { QStringLiteral("out"), out }, { QStringLiteral("pages"), int(printer.pageCount()) },
            { QStringLiteral("panels"), int(printer.panelCount()) }, { QStringLiteral("leftOut"), int(printer.leftOut()) },
            { QStringLiteral("layout"), QStringLiteral("%1x%2").arg(settings.columns).arg(settings.rows) },
            { QStringLiteral("fields"), QJsonArray::fromStringList(settings.fields) } });
        return ExitStatus::Success;
    }
    Console::out(QStringLiteral("wrote %1: %2 pages, %3 panels (%4 left out by their options), %5x%6 a page, from %7\n")
                     .arg(out)
                     .arg(printer.pageCount())
                     .arg(printer.panelCount())
                     .arg(printer.leftOut())
                     .arg(settings.columns)
                     .arg(settings.rows)
                     .arg(document.path()));
    return ExitStatus::Success;
}

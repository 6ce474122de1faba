#include "SketchesCommand.h"

#include "Console.h"
#include "ProgressBar.h"
#include "board/SampleSketch.h"

#include <QDir>
#include <QImageWriter>
#include <QJsonArray>
#include <QRegularExpression>

namespace {

const int kSchemaVersion = 1;
const unsigned kMostSketches = 100000;
const int kMostSide = 8192;

QSize readSize(const ArgumentValues& arguments)
{
    if (!arguments.isSet(QStringLiteral("--size")))
        return QSize(640, 360);
    const QString text = arguments.value(QStringLiteral("--size"));
    static const QRegularExpression pattern(QStringLiteral("^([0-9]{1,4})x([0-9]{1,4})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QSize size = match.hasMatch() ? QSize(match.captured(1).toInt(), match.captured(2).toInt()) : QSize();
    if (size.width() < 16 || size.height() < 16 || size.width() > kMostSide || size.height() > kMostSide)
        throw ToolError::usage(QStringLiteral("--size takes WIDTHxHEIGHT, each from 16 to %1, not '%2'").arg(kMostSide).arg(text));
    return size;
}

} // namespace

SketchesCommand::SketchesCommand()
    : Command(QStringLiteral("sketches"), QStringLiteral("draw numbered sample drawings into a folder"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("DIR"), QStringLiteral("folder to write them to (made when missing)"));
    parser.addOption(QStringLiteral("--count"), QStringLiteral("N"), QStringLiteral("how many (12)"));
    parser.addOption(QStringLiteral("--size"), QStringLiteral("WxH"), QStringLiteral("pixels of each (640x360)"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("report the files written as JSON"));
    parser.setEpilogue(QStringLiteral(
        "PNG files named as shots of two to four panels (SH010_p1.png, SH010_p2.png, SH020_p1.png...),\n"
        "each with simple shapes and its number; the same options always give the same files.\n"
        "\n"
        "example: krolle sketches drawings --count 40 && krolle import-images drawings --out board.xml"));
}

ExitStatus SketchesCommand::run(const ArgumentValues& arguments)
{
    const QString dir = arguments.positional(QStringLiteral("DIR"));
    const unsigned count = arguments.number(QStringLiteral("--count"), 12, 1, kMostSketches);
    const QSize size = readSize(arguments);
    if (!QDir().mkpath(dir))
        throw ToolError::file(QStringLiteral("cannot make the folder %1").arg(dir));
    ProgressBar progress(QStringLiteral("drawing"), count);
    QJsonArray files;
    for (unsigned number = 1; number <= count; ++number) {
        const QString path = QDir(dir).filePath(SampleSketch::fileName(number));
        files.append(path);
        QImageWriter writer(path, "png");
        if (!writer.write(SampleSketch::draw(number, size)))
            throw ToolError::file(QStringLiteral("cannot write %1: %2").arg(path, writer.errorString()));
        progress.advance();
    }
    const QString pixels = QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
    if (arguments.isSet(QStringLiteral("--json"))) {
        Console::outJson({ { QStringLiteral("krolle"), QStringLiteral("sketches") },
            { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("folder"), dir },
            { QStringLiteral("size"), pixels }, { QStringLiteral("files"), files } });
        return ExitStatus::Success;
    }
    Console::out(QStringLiteral("wrote %1 sketches of %2 to %3\n").arg(count).arg(pixels, dir));
    return ExitStatus::Success;
}

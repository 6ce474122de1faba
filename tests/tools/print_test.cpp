// Boards from a folder of images and their printed pages: natural order and grouping by
// file name, the text of the pages in board order without disabled panels, pictures that
// really print, and the commands' examples as golden files.
#include "ToolProcess.h"

#include "host/engine/HostProjectFile.h"
#include "metadata/KRC_MetadataFactory.h"
#include "metadata/KRC_PdfOptions.h"
#include "project/KRC_KrolleProject.h"
#include "properties/KRC_Property.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <gtest/gtest.h>

namespace {

const QColor kRed(220, 20, 20);

class PrintedBoard : public ::testing::Test
{
protected:
    // Small images, each filled with one colour; a name without an image suffix gets text.
    void drawings(const QStringList& names) const
    {
        QDir().mkpath(sandbox.path("in"));
        for (const QString& name : names) {
            if (name.endsWith(".txt")) {
                sandbox.write("in/" + name, "no picture");
                continue;
            }
            QImage image(64, 36, QImage::Format_RGB32);
            image.fill(kRed);
            ASSERT_TRUE(image.save(sandbox.path("in/" + name)));
        }
    }

    ToolRun ok(const QStringList& arguments) const
    {
        const ToolRun run = sandbox.run(arguments);
        EXPECT_EQ(run.exitCode, 0) << arguments.join(' ').toStdString() << ": " << run.err.toStdString();
        return run;
    }

    // Switches off the export of the first panel of the given shot, as a host's PDF dialog would.
    void disableFirstPanelOf(const QString& board, const QString& shotName) const
    {
        KRC_MetadataFactory::createInstance();
        QString error;
        UT_SharedPtr<SC_Project> project = HostProjectFile::load(sandbox.path(board), &error);
        ASSERT_TRUE(project) << error.toStdString();
        {
            KRC_KrolleProject view(project.get());
            auto panel = view.beginPanel();
            while (panel->shotName() != shotName)
                ++panel;
            const KRC_Property disabled("panel_export_enabled", false, nullptr);
            panel->pdfOptions()->addPdfOptions(&disabled);
        }
        ASSERT_TRUE(HostProjectFile::save(project.get(), sandbox.path(board), &error)) << error.toStdString();
    }

    QString pdfText(const QString& pdf) const
    {
        QProcess process;
        process.start("pdftotext", { "-raw", sandbox.path(pdf), "-" });
        EXPECT_TRUE(process.waitForFinished()) << "pdftotext (poppler-utils) is needed";
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    ToolSandbox sandbox;
};

// Images come in natural order and group by name (by shot, by sequence) or stay where
// they are (linked); a file that is no image is said and skipped; an empty folder is refused.
TEST_F(PrintedBoard, ImagesComeInNaturalOrderAndGroupByName)
{
    drawings({ "SQ020_SH010_p10.png", "SQ020_SH010_p2.png", "sq020_sh010-1.jpg", "SQ020_SH020_p1.png",
        "notes.txt" });
    QDir().mkpath(sandbox.path("empty"));
    expectTranscript(sandbox,
        { { "import-images", "in", "--out", "grouped.xml", "--group", "shot", "--length", "12" },
            { "export", "grouped.xml", "--format", "csv" },
            { "import-images", "in", "--out", "sequences.xml", "--group", "sequence" },
            { "export", "sequences.xml", "--format", "csv" },
            { "import-images", "in", "--out", "linked.xml", "--link" },
            { "export", "linked.xml", "--format", "csv" },
            { "import-images", "empty", "--out", "none.xml" } },
        "import_images.txt");
}

TEST_F(PrintedBoard, PagesHoldEveryExportedPanelInOrderAndPictures)
{
    drawings({ "SH010_p1.png", "SH010_p2.png", "SH020_p1.png", "SH030_p1.png" });
    ok({ "import-images", "in", "--out", "board.xml", "--group", "shot", "--length", "30" });
    ok({ "fields", "board.xml", "--add", "Dialogue" });
    ok({ "set", "board.xml", "--panel", "SH010/2", "--field", "Dialogue", "--value", "Where <is> it?" });
    ok({ "set", "board.xml", "--panel", "SH020/1", "--field", "Dialogue", "--value", "Gone" });
    ok({ "insert-panel", "board.xml", "--shot", "SH030", "--after", "1", "--length", "8" });
    disableFirstPanelOf("board.xml", "SH020");
    ok({ "pdf", "board.xml", "--out", "board.pdf", "--layout", "1x3" });

    const QString text = pdfText("board.pdf");
    const QStringList expected { "board", "page 1 of 2", "SH010 / 1", "30 fr 00:00:01:06", "SH010 / 2",
        "Dialogue: Where <is> it?", "SH030 / 1", "page 2 of 2", "no picture", "SH030 / 2", "8 fr 00:00:00:08" };
    int from = 0;
    for (const QString& piece : expected) {
        const int at = text.indexOf(piece, from);
        EXPECT_GE(at, 0) << piece.toStdString() << " after " << from << " in\n" << text.toStdString();
        from = at < 0 ? from : at + piece.size();
    }
    EXPECT_FALSE(text.contains("Gone")) << "a disabled panel is left out";
    EXPECT_FALSE(text.contains("<p")) << "rich text prints as text";

    // The first cell's picture box is red where the drawing was placed.
    ASSERT_EQ(QProcess::execute("pdftoppm", { "-png", "-r", "40", "-f", "1", "-l", "1", "-singlefile",
                                                sandbox.path("board.pdf"), sandbox.path("page") }),
        0);
    const QImage page(sandbox.path("page.png"));
    int red = 0;
    for (int y = 0; y < page.height() / 3; ++y) {
        for (int x = 0; x < page.width() / 2; ++x)
            red += qRed(page.pixel(x, y)) > 180 && qGreen(page.pixel(x, y)) < 80;
    }
    EXPECT_GT(red, page.width() * page.height() / 50);
}

TEST_F(PrintedBoard, DocumentedExamples)
{
    expectTranscript(sandbox,
        { { "sketches", "drawings", "--count", "7" },
            { "import-images", "drawings", "--out", "board.xml", "--group", "shot" },
            { "pdf", "board.xml", "--out", "board.pdf", "--landscape" } },
        "print_examples.txt");
}

} // namespace

// Bad, missing and unwritable files: exit status 2 and one sentence naming the file and the place.
#include "ToolProcess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

// Every command refuses a bad "project.xml" with status 2 and the place: files_bad.txt.
TEST(ToolFiles, BadProjectFilesAreRefusedWithTheirPlaceByEveryCommand)
{
    const char* const contents[] = { nullptr, // no file at all
        "just words\n",
        "<?xml version=\"1.0\"?>\n<engineProject version=\"1\" nextId=\"3\">\n <scene id=\"1\"",
        "<?xml version=\"1.0\"?>\n<engineProject version=\"1\" nextId=\"3\">\n <scene id=\"1\" "
        "name=\"Top\">\n  <sequence>\n   <block first=\"1\" last=\"10\" kind=\"warp\" scene=\"9\" "
        "start=\"1\" end=\"10\"/>\n  </sequence>\n </scene>\n</engineProject>\n" };
    ToolSandbox sandbox;
    QString shown;
    for (const char* content : contents) {
        QFile::remove(sandbox.path(QStringLiteral("project.xml")));
        if (content)
            sandbox.write(QStringLiteral("project.xml"), QByteArray(content));
        shown += sandbox.transcript(
            { { "outline", "project.xml" }, { "at", "project.xml", "1" }, { "check", "project.xml" },
                { "rules", "project.xml" }, { "insert-shot", "project.xml", "--after", "A" } });
    }
    EXPECT_EQ(shown, goldenText(QStringLiteral("files_bad.txt"), shown));
}

// A folder, a missing folder, damaged preferences: file errors (status 2), and no folder
// made. An existing file is kept unless forced: status 1.
TEST(ToolFiles, DirectoriesMissingFoldersDamagedPreferencesAndExistingFiles)
{
    ToolSandbox sandbox;
    QDir(sandbox.path(QString())).mkdir(QStringLiteral("folder"));
    sandbox.write(QStringLiteral("board.xml"), "precious");
    expectTranscript(sandbox,
        { { "outline", "folder" }, { "new", "missing/board.xml" }, { "new", "board.xml" } },
        "files_refused.txt");
    EXPECT_FALSE(QFileInfo::exists(sandbox.path(QStringLiteral("missing"))));
    EXPECT_EQ(sandbox.read(QStringLiteral("board.xml")), QByteArray("precious"));
    EXPECT_EQ(sandbox.run({ "new", "board.xml", "--force" }).exitCode, 0);
    EXPECT_NE(sandbox.read(QStringLiteral("board.xml")), QByteArray("precious"));

    sandbox.write(QStringLiteral("prefs.txt"), "bool ST_ENABLE_ACT = maybe\n");
    sandbox.setEnvironment(QStringLiteral("KROLLE_PREFERENCES"), sandbox.path(QStringLiteral("prefs.txt")));
    const ToolRun run = sandbox.run({ "demo" });
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.err.startsWith(
        QStringLiteral("krolle demo: cannot read the preferences named by KROLLE_PREFERENCES: ")))
        << run.err.toStdString();
    EXPECT_TRUE(run.out.isEmpty());
}

} // namespace

// Bad, missing and unwritable files: exit status 2 and one sentence naming the file and the place.
#include "ToolProcess.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

TEST(ToolFiles, BadProjectFilesAreRefusedWithTheirPlaceByEveryCommand)
{
    // The content of "project.xml" (null: no file at all), the error after "krolle <command>: ".
    const std::pair<const char*, const char*> cases[] = {
        { nullptr, "cannot load project.xml: No such file or directory" },
        { "just words\n", "cannot load project.xml: line 1, column 1: Start tag expected." },
        { "<?xml version=\"1.0\"?>\n<engineProject version=\"1\" nextId=\"3\">\n <scene id=\"1\"",
            "cannot load project.xml: line 3, column 14: Premature end of document." },
        { "<?xml version=\"1.0\"?>\n<engineProject version=\"1\" nextId=\"3\">\n <scene id=\"1\" "
          "name=\"Top\">\n  <sequence>\n   <block first=\"1\" last=\"10\" kind=\"warp\" scene=\"9\" "
          "start=\"1\" "
          "end=\"10\"/>\n  </sequence>\n </scene>\n</engineProject>\n",
            "cannot load project.xml: line 5, column 72: the block refers to scene 9, which does not exist" },
    };
    for (const auto& [content, message] : cases) {
        ToolSandbox sandbox;
        if (content)
            sandbox.write(QStringLiteral("project.xml"), QByteArray(content));
        for (const QStringList& arguments :
            { QStringList { "outline", "project.xml" }, QStringList { "at", "project.xml", "1" },
                QStringList { "check", "project.xml" }, QStringList { "rules", "project.xml" },
                QStringList { "insert-shot", "project.xml", "--after", "A" } }) {
            const ToolRun run = sandbox.run(arguments);
            EXPECT_EQ(run.exitCode, 2) << arguments.join(' ').toStdString();
            EXPECT_EQ(run.err,
                QStringLiteral("krolle %1: %2\n").arg(arguments.first(), QString::fromUtf8(message)));
            EXPECT_TRUE(run.out.isEmpty());
        }
    }
}

TEST(ToolFiles, DirectoriesMissingFoldersAndDamagedPreferencesAreFileErrors)
{
    ToolSandbox sandbox;
    QDir(sandbox.path(QString())).mkdir(QStringLiteral("folder"));
    ToolRun run = sandbox.run({ "outline", "folder" });
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.err.startsWith(QStringLiteral("krolle outline: cannot load folder: ")))
        << run.err.toStdString();

    run = sandbox.run({ "new", "missing/board.xml" });
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(
        run.err, QStringLiteral("krolle new: cannot save missing/board.xml: No such file or directory\n"));
    EXPECT_FALSE(QFileInfo::exists(sandbox.path(QStringLiteral("missing"))));

    sandbox.write(QStringLiteral("prefs.txt"), "bool ST_ENABLE_ACT = maybe\n");
    sandbox.setEnvironment(QStringLiteral("KROLLE_PREFERENCES"), sandbox.path(QStringLiteral("prefs.txt")));
    run = sandbox.run({ "demo" });
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.err.startsWith(
        QStringLiteral("krolle demo: cannot read the preferences named by KROLLE_PREFERENCES: ")))
        << run.err.toStdString();
    EXPECT_TRUE(run.out.isEmpty());
}

TEST(ToolFiles, NewKeepsAnExistingFileUnlessForced)
{
    ToolSandbox sandbox;
    sandbox.write(QStringLiteral("board.xml"), "precious");
    const ToolRun refused = sandbox.run({ "new", "board.xml" });
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.err,
        QStringLiteral("krolle new: board.xml already exists; choose another name or add --force\n"));
    EXPECT_EQ(sandbox.read(QStringLiteral("board.xml")), QByteArray("precious"));
    EXPECT_EQ(sandbox.run({ "new", "board.xml", "--force" }).exitCode, 0);
    EXPECT_NE(sandbox.read(QStringLiteral("board.xml")), QByteArray("precious"));
}

} // namespace

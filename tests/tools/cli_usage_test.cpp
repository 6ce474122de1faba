// The tool's command line: help, version, and the exit status and one-line message of bad usage.
#include "ToolProcess.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

// Each bad command line ends with status 64 and one line on standard error, nothing on
// standard output: usage_bad.txt shows them.
TEST(ToolCommandLine, BadUsageEndsWithStatus64AndOneLine)
{
    expectTranscript(ToolSandbox(),
        { { "frobnicate" }, { "new", "a.krl", "--colour" }, { "new" }, { "new", "a.krl", "b.krl" },
            { "new", "a.krl", "--shots" }, { "new", "a.krl", "--shots", "0" },
            { "new", "a.krl", "--shots=ten" },
            // At most one act a sequence.
            { "new", "a.krl", "--shots", "3", "--sequences", "2", "--acts", "3" }, { "at", "a.xml", "0" },
            { "at", "a.xml", "3", "--prefer", "both" }, { "outline", "a.xml", "--fps", "0" },
            { "insert-shot", "a.xml" }, { "new", "a.krl", "--force=yes" } },
        "usage_bad.txt");
}

TEST(ToolCommandLine, HelpGoesToStandardOutputAndWithoutArgumentsToStandardErrorAsBadUsage)
{
    ToolSandbox sandbox;
    const ToolRun bare = sandbox.run({});
    EXPECT_EQ(bare.exitCode, 64);
    EXPECT_TRUE(bare.out.isEmpty());
    EXPECT_EQ(bare.err, goldenText(QStringLiteral("help.txt"), bare.err));
    EXPECT_EQ(sandbox.run({ "--help" }).out, bare.err);
    // Each command's help, status 0 and nothing on standard error; help wins over otherwise
    // bad arguments; "krolle help <command>" says the same.
    const QStringList commands { "demo", "new", "outline", "at", "rules", "insert-shot", "insert-panel",
        "check" };
    std::vector<QStringList> lines { { "--help" }, { "new", "--shots", "zero", "-h" } };
    for (const QString& command : commands)
        lines.push_back({ command, "--help" });
    expectTranscript(sandbox, lines, "help_commands.txt");
    for (const QString& command : commands)
        EXPECT_EQ(sandbox.run({ "help", command }).out, sandbox.run({ command, "--help" }).out)
            << command.toStdString();

    const ToolRun version = sandbox.run({ "--version" });
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_TRUE(
        QRegularExpression(QStringLiteral("^krolle \\d+\\.\\d+\\.\\d+\n$")).match(version.out).hasMatch())
        << version.out.toStdString();
}

} // namespace

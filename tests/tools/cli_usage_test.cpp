// The tool's command line: help, version, and the exit status and one-line message of bad usage.
#include "ToolProcess.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

TEST(ToolCommandLine, BadUsageEndsWithStatus64AndOneLine)
{
    const std::pair<QStringList, const char*> cases[] = {
        { { "frobnicate" }, "krolle: unknown command 'frobnicate' (see krolle --help)\n" },
        { { "new", "a.krl", "--colour" }, "krolle new: unknown option '--colour' (see krolle new --help)\n" },
        { { "new" }, "krolle new: missing FILE (see krolle new --help)\n" },
        { { "new", "a.krl", "b.krl" }, "krolle new: unexpected argument 'b.krl' (see krolle new --help)\n" },
        { { "new", "a.krl", "--shots" }, "krolle new: --shots needs a value N (see krolle new --help)\n" },
        { { "new", "a.krl", "--shots", "0" },
            "krolle new: --shots needs a whole number from 1 to 100000, not '0' (see krolle new --help)\n" },
        { { "new", "a.krl", "--shots=ten" },
            "krolle new: --shots needs a whole number from 1 to 100000, not 'ten' (see krolle new "
            "--help)\n" },
        { { "new", "a.krl", "--shots", "3", "--sequences", "2", "--acts", "3" }, // at most one act a sequence
            "krolle new: --acts needs a whole number from 0 to 2, not '3' (see krolle new --help)\n" },
        { { "at", "a.xml", "0" },
            "krolle at: FRAME needs a whole number from 1 to 4294967294, not '0' (see krolle at --help)\n" },
        { { "at", "a.xml", "3", "--prefer", "both" },
            "krolle at: --prefer must be one of previous, next, not 'both' (see krolle at --help)\n" },
        { { "outline", "a.xml", "--fps", "0" },
            "krolle outline: --fps needs a whole number from 1 to 1000 or an NTSC rate (23.976, 29.97, 59.94, "
            "24000/1001), not '0' (see krolle outline --help)\n" },
        { { "insert-shot", "a.xml" },
            "krolle insert-shot: give exactly one of --after, --before (see krolle insert-shot --help)\n" },
        { { "new", "a.krl", "--force=yes" }, "krolle new: --force takes no value (see krolle new --help)\n" },
    };
    ToolSandbox sandbox;
    for (const auto& [arguments, message] : cases) {
        const ToolRun run = sandbox.run(arguments);
        EXPECT_EQ(run.exitCode, 64) << arguments.join(' ').toStdString();
        EXPECT_EQ(run.err.toStdString(), message);
        EXPECT_TRUE(run.out.isEmpty()) << run.out.toStdString();
    }
}

TEST(ToolCommandLine, HelpGoesToStandardOutputAndWithoutArgumentsToStandardErrorAsBadUsage)
{
    ToolSandbox sandbox;
    const ToolRun bare = sandbox.run({});
    EXPECT_EQ(bare.exitCode, 64);
    EXPECT_TRUE(bare.out.isEmpty());
    EXPECT_EQ(bare.err, goldenText(QStringLiteral("help.txt"), bare.err));
    const ToolRun tool = sandbox.run({ "--help" });
    EXPECT_EQ(tool.exitCode, 0);
    EXPECT_EQ(tool.out, bare.err);
    for (const QString& command :
        QStringList { "demo", "new", "outline", "at", "rules", "insert-shot", "insert-panel", "check" }) {
        const ToolRun help = sandbox.run({ command, "--help" });
        EXPECT_EQ(help.exitCode, 0) << command.toStdString();
        EXPECT_TRUE(help.out.startsWith(QStringLiteral("usage: krolle %1").arg(command)))
            << help.out.toStdString();
        EXPECT_TRUE(help.err.isEmpty());
        // "krolle help <command>" says the same.
        EXPECT_EQ(sandbox.run({ "help", command }).out, help.out);
    }
    // Help wins over otherwise bad arguments.
    const ToolRun winning = sandbox.run({ "new", "--shots", "zero", "-h" });
    EXPECT_EQ(winning.exitCode, 0);
    EXPECT_TRUE(winning.out.startsWith(QStringLiteral("usage: krolle new FILE")));

    const ToolRun version = sandbox.run({ "--version" });
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_TRUE(
        QRegularExpression(QStringLiteral("^krolle \\d+\\.\\d+\\.\\d+\n$")).match(version.out).hasMatch())
        << version.out.toStdString();
}

} // namespace

// The tool's command line: help, version, and the exit status and one-line message of bad usage.
#include "ToolProcess.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

struct UsageCase
{
    const char* title;
    QStringList arguments;
    int exitCode;
    const char* message; // the whole of standard error
};

std::ostream& operator<<(std::ostream& out, const UsageCase& c)
{
    return out << c.title;
}

class BadUsage : public ::testing::TestWithParam<UsageCase>
{
};

TEST_P(BadUsage, EndsWithStatusAndOneLine)
{
    ToolSandbox sandbox;
    const UsageCase& c = GetParam();
    const ToolRun run = sandbox.run(c.arguments);
    EXPECT_EQ(run.exitCode, c.exitCode);
    EXPECT_EQ(run.err.toStdString(), c.message);
    EXPECT_TRUE(run.out.isEmpty()) << run.out.toStdString();
}

const UsageCase kUsageCases[] = {
    { "unknown command", { "frobnicate" }, 64, "krolle: unknown command 'frobnicate' (see krolle --help)\n" },
    { "unknown option", { "new", "a.krl", "--colour" }, 64,
        "krolle new: unknown option '--colour' (see krolle new --help)\n" },
    { "missing positional", { "new" }, 64, "krolle new: missing FILE (see krolle new --help)\n" },
    { "extra positional", { "new", "a.krl", "b.krl" }, 64,
        "krolle new: unexpected argument 'b.krl' (see krolle new --help)\n" },
    { "option without its value", { "new", "a.krl", "--shots" }, 64,
        "krolle new: --shots needs a value N (see krolle new --help)\n" },
    { "number out of range", { "new", "a.krl", "--shots", "0" }, 64,
        "krolle new: --shots needs a whole number from 1 to 100000, not '0' (see krolle new --help)\n" },
    { "number that is no number", { "new", "a.krl", "--shots=ten" }, 64,
        "krolle new: --shots needs a whole number from 1 to 100000, not 'ten' (see krolle new --help)\n" },
    { "range that depends on another option", { "new", "a.krl", "--shots", "3", "--acts", "4" }, 64,
        "krolle new: --acts needs a whole number from 0 to 3, not '4' (see krolle new --help)\n" },
    { "frame that is no frame", { "at", "a.xml", "0" }, 64,
        "krolle at: FRAME needs a whole number from 1 to 4294967294, not '0' (see krolle at --help)\n" },
    { "choice outside its list", { "at", "a.xml", "3", "--prefer", "both" }, 64,
        "krolle at: --prefer must be one of previous, next, not 'both' (see krolle at --help)\n" },
    { "frame rate out of range", { "outline", "a.xml", "--fps", "0" }, 64,
        "krolle outline: --fps needs a whole number from 1 to 1000, not '0' (see krolle outline --help)\n" },
    { "neither side given", { "insert-shot", "a.xml" }, 64,
        "krolle insert-shot: give exactly one of --after, --before (see krolle insert-shot --help)\n" },
    { "flag given a value", { "new", "a.krl", "--force=yes" }, 64,
        "krolle new: --force takes no value (see krolle new --help)\n" },
};

INSTANTIATE_TEST_SUITE_P(Tool, BadUsage, ::testing::ValuesIn(kUsageCases));

TEST(ToolCommandLine, NoArgumentsPrintsTheHelpOnStandardErrorAsBadUsage)
{
    ToolSandbox sandbox;
    const ToolRun run = sandbox.run({});
    EXPECT_EQ(run.exitCode, 64);
    EXPECT_TRUE(run.out.isEmpty());
    EXPECT_EQ(run.err, goldenText(QStringLiteral("help.txt"), run.err));
}

TEST(ToolCommandLine, HelpOfTheToolAndOfEachCommandGoesToStandardOutput)
{
    ToolSandbox sandbox;
    const ToolRun tool = sandbox.run({ "--help" });
    EXPECT_EQ(tool.exitCode, 0);
    EXPECT_EQ(tool.out, goldenText(QStringLiteral("help.txt"), tool.out));
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
}

TEST(ToolCommandLine, HelpWinsOverOtherwiseBadArguments)
{
    ToolSandbox sandbox;
    const ToolRun run = sandbox.run({ "new", "--shots", "zero", "-h" });
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.out.startsWith(QStringLiteral("usage: krolle new FILE")));
}

TEST(ToolCommandLine, VersionIsOneLine)
{
    ToolSandbox sandbox;
    const ToolRun run = sandbox.run({ "--version" });
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^krolle \\d+\\.\\d+\\.\\d+\n$")).match(run.out).hasMatch())
        << run.out.toStdString();
}

} // namespace

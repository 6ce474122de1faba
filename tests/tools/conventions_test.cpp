// The tool's conventions on many command lines at once: timecodes, standard streams, near words, scripts.
#include "ToolProcess.h"

#include <gtest/gtest.h>

namespace {

struct Case
{
    QStringList arguments;
    int status;
    const char* golden; // of standard output, then standard error
    const char* input = nullptr; // a sandbox file given as standard input
};

TEST(ToolConventions, CommandLinesAgainstGoldens)
{
    ToolSandbox sandbox;
    ASSERT_EQ(sandbox.run({ "demo", "--out", "demo.xml" }).exitCode, 0);
    sandbox.write("frames.txt", "10\n00:00:03:07\t450\n");
    ASSERT_EQ(sandbox.run({ "demo", "--out", "off.xml" }).exitCode, 0);
    ASSERT_EQ(sandbox.run({ "demo", "--out", "ntsc.xml" }).exitCode, 0);
    sandbox.write("rule9.xml", sandbox.read("demo.xml").replace("autoIncrementRule=\"4\"", "autoIncrementRule=\"9\""));
    const Case cases[] = {
        { { "at", "demo.xml", "00:00:03:07", "--fps", "24" }, 0, "conv_at_timecode.txt" },
        { { "at", "demo.xml", "-", "--fps", "24", "--prefer", "next" }, 0, "conv_at_stdin.txt", "frames.txt" },
        { { "at", "demo.xml", "1", "01:00:05;00", "--json", "--fps", "29.97", "--drop-frame", "--start-tc",
              "01:00:00;00" },
            0, "conv_at_drop_frame.json" },
        { { "outline", "-", "--fps", "30000/1001", "--drop-frame", "--start-tc", "00:59:59;00" }, 0,
            "conv_outline_stdin_df.txt", "demo.xml" },
        { { "export", "demo.xml", "--format", "edl", "--fps", "59.94", "--drop-frame" }, 0, "conv_export_df.edl" },
        { { "camera", "demo.xml", "00:00:05:19", "--fps", "24" }, 0, "camera_demo.txt" },
        // SH065 after SH060 leaves SH060 off the rules, counting by ten between SH050 and SH065.
        { { "insert-shot", "off.xml", "--after", "SH060", "--panels", "2" }, 0, "conv_insert_warns.txt" },
        { { "check", "off.xml" }, 1, "conv_check_expected.txt" },
        { { "insert-shot", "rule9.xml", "--after", "SH010" }, 1, "conv_insert_unknown_rule.txt" },
        { { "insert-panel", "off.xml", "--shot", "SH050", "--after", "2A", "--length", "00:00:01:00", "--fps", "24" },
            0, "conv_insert_length_timecode.txt" },
        // One drop-frame timecode through set-length, outline and at: SH020 lasts one second
        // of labels and starts where the outline says.
        { { "set-length", "ntsc.xml", "--shot", "SH020", "--length", "00:00:01;00", "--fps", "29.97", "--drop-frame" },
            0, "conv_ntsc_set_length.txt" },
        { { "outline", "ntsc.xml", "--fps", "29.97", "--drop-frame" }, 0, "conv_ntsc_outline.txt" },
        { { "at", "ntsc.xml", "00:00:00;22", "00:00:01;21", "--fps", "29.97", "--drop-frame" }, 0, "conv_ntsc_at.txt" },
        { { "new", "-", "--shots", "2", "--panels-per-shot", "1" }, 0, "conv_new_stdout.xml" },
        { { "completion", "bash" }, 0, "completion.bash" },
        { { "completion", "zsh" }, 0, "completion.zsh" },
        { { "man" }, 0, "krolle.1" },
        { { "at", "demo.xml", "00:00:03:07" }, 64, "conv_at_no_fps.txt" },
        { { "at", "demo.xml", "00:01:00;01", "--fps", "29.97", "--drop-frame" }, 64, "conv_at_dropped.txt" },
        { { "outline", "demo.xml", "--fps", "24", "--drop-frame" }, 64, "conv_drop_frame_refused.txt" },
        { { "outline", "demo.xml", "--fps", "23.5" }, 64, "conv_fps_refused.txt" },
        { { "outline", "demo.xml", "--fsp", "24" }, 64, "conv_near_option.txt" },
        { { "help", "outlien" }, 64, "conv_near_command.txt" },
        { { "otline", "demo.xml" }, 64, "conv_near_command_run.txt" },
        { { "demo", "--out", "demo.xml" }, 1, "conv_demo_exists.txt" },
        { { "insert-shot", "-", "--after", "SH010" }, 64, "conv_edit_stdin.txt" },
    };
    for (const Case& one : cases) {
        const ToolRun run = sandbox.run(one.arguments, one.input ? QString::fromLatin1(one.input) : QString());
        const QString shown = run.out + run.err;
        EXPECT_EQ(run.exitCode, one.status) << one.arguments.join(' ').toStdString() << "\n" << run.err.toStdString();
        EXPECT_EQ(shown, goldenText(QString::fromLatin1(one.golden), shown)) << one.arguments.join(' ').toStdString();
    }
    // Written to standard output, the sample is the file that --out writes, and nothing else.
    EXPECT_EQ(sandbox.run({ "demo", "--out", "-" }).out.toUtf8(), sandbox.read("demo.xml"));
    for (const char* version : { "-V", "version", "--version" })
        EXPECT_TRUE(sandbox.run({ version }).out.startsWith(QStringLiteral("krolle "))) << version;
}

} // namespace

// Edits and addresses: show, rename, lock-names, remove, move, set-length and transitions,
// each run on a fresh copy of the sample and compared with golden outputs.
#include "ToolProcess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

class ToolEdits : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(sandbox.run({ "demo", "--out", "demo.xml" }).exitCode, 0);
        ASSERT_EQ(sandbox.run({ "new", "small.xml", "--shots", "3", "--panels-per-shot", "2", "--seed", "7" }).exitCode, 0);
        demo = sandbox.read("demo.xml");
        small = sandbox.read("small.xml");
    }

    // Puts both files back as they were made.
    void restore()
    {
        sandbox.write("demo.xml", demo);
        sandbox.write("small.xml", small);
    }

    QJsonObject json(const QStringList& arguments)
    {
        const ToolRun run = sandbox.run(arguments);
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        return QJsonDocument::fromJson(run.out.toUtf8()).object();
    }

    ToolSandbox sandbox;
    QByteArray demo;
    QByteArray small;
};

TEST_F(ToolEdits, GoldenOutputsOnFreshFiles)
{
    const std::pair<QStringList, const char*> cases[] = {
        { { "show", "demo.xml", "--shot", "SH030" }, "show_shot.txt" },
        { { "show", "demo.xml", "--panel", "#5/3", "--json" }, "show_panel.json" },
        { { "show", "demo.xml", "--transition", "#1" }, "show_transition.txt" },
        { { "rename", "demo.xml", "--shot", "SH030", "--to", "SH025" }, "rename_shot.txt" },
        { { "rename", "demo.xml", "--panel", "SH050/2A", "--auto", "--dry-run" }, "rename_panel_auto.txt" },
        { { "rename", "demo.xml", "--sequence", "SQ020", "--to", "SQ025", "--json" }, "rename_sequence.json" },
        { { "lock-names", "small.xml", "--to", "#2", "--panels" }, "lock_names.txt" },
        { { "remove", "small.xml", "--shot", "#1" }, "remove_shot.txt" },
        { { "remove", "demo.xml", "--panel", "SH010/1", "--json" }, "remove_panel.json" },
        { { "move", "small.xml", "--shot", "3", "--before", "1" }, "move_shot.txt" },
        { { "move", "demo.xml", "--panel", "SH010/1", "--after", "SH020/1" }, "move_panel.txt" },
        { { "set-length", "demo.xml", "--panel", "SH010/2", "--length", "16" }, "set_length.txt" },
        { { "add-transition", "demo.xml", "--after", "SH040", "--length", "6", "--type", "wipe", "--json" },
            "add_transition.json" },
        { { "remove-transition", "demo.xml", "--transition", "#1", "--dry-run" }, "remove_transition.txt" },
    };
    for (const auto& [arguments, golden] : cases) {
        restore();
        const ToolRun run = sandbox.run(arguments);
        EXPECT_EQ(run.exitCode, 0) << arguments.join(' ').toStdString() << ": " << run.err.toStdString();
        EXPECT_EQ(run.out, goldenText(QString::fromLatin1(golden), run.out)) << arguments.join(' ').toStdString();
        const bool changes = arguments.first() != "show" && !arguments.contains("--dry-run");
        EXPECT_EQ(sandbox.read("demo.xml") != demo || sandbox.read("small.xml") != small, changes)
            << arguments.join(' ').toStdString();
    }
}

// Refused edits say why on standard error and change neither file: edit_refusals.txt.
TEST_F(ToolEdits, RefusalsChangeNothing)
{
    ASSERT_EQ(sandbox.run({ "rename", "small.xml", "--shot", "#2", "--to", "1" }).exitCode, 0);
    small = sandbox.read("small.xml");
    expectTranscript(sandbox,
        { { "show", "small.xml", "--shot", "1" }, { "show", "demo.xml", "--shot", "#13" },
            { "show", "demo.xml", "--panel", "SH010/#9" },
            { "show", "demo.xml", "--panel", "0x00000000000fffff" },
            { "show", "demo.xml", "--shot", "SH010", "--transition", "#1" },
            { "set-length", "demo.xml", "--shot", "SH020", "--length", "3" },
            { "move", "demo.xml", "--shot", "SH010", "--before", "SH030" },
            // SH080 shows its last panel through its warp: taking it would leave frames without a panel.
            { "move", "demo.xml", "--panel", "SH080/3", "--before", "#1/1" },
            { "add-transition", "demo.xml", "--after", "SH020", "--length", "2" },
            { "set-length", "demo.xml", "--shot", "SH010", "--length", "0" },
            { "rename", "demo.xml", "--act", "Nowhere", "--to", "X" },
            // Without preferences the panel rules allow no custom name.
            { "rename", "demo.xml", "--panel", "SH050/1", "--to", "1A" },
            { "camera", "demo.xml", "SH040", "--shot", "SH040" } },
        "edit_refusals.txt");
    EXPECT_EQ(sandbox.read("demo.xml"), demo);
    EXPECT_EQ(sandbox.read("small.xml"), small);
}

// Kept names do not follow their places: removing the first shot moves no other name,
// and giving one back its automatic name shows it moving.
TEST_F(ToolEdits, KeptNamesStayWhenObjectsMove)
{
    expectTranscript(sandbox,
        { { "lock-names", "small.xml", "--panels" }, { "remove", "small.xml", "--shot", "#1", "--json" },
            { "rename", "small.xml", "--shot", "2", "--auto", "--json" } },
        "kept_names.txt");
}

// Runs are told apart by name alone: an automatic name that a neighbour already has is refused.
TEST_F(ToolEdits, AnAutomaticNameNeverJoinsTwoSequences)
{
    expectTranscript(sandbox,
        { { "rename", "demo.xml", "--sequence", "#2", "--auto" }, { "rename", "demo.xml", "--sequence", "#3", "--auto" } },
        "sequence_auto.txt");
}

// A move or a resize records the panels it retimed, and only those, as changed.
TEST_F(ToolEdits, MovesAndResizesTrackThePanelsTheyRetime)
{
    const std::pair<QStringList, QStringList> cases[] = {
        { { "move", "small.xml", "--shot", "3", "--before", "1" },
            { "panel 1 \"1\" of shot 1 \"1\"", "panel 2 \"2\" of shot 1 \"1\"" } },
        { { "move", "demo.xml", "--panel", "SH010/1", "--after", "SH020/1" }, { "panel 2 \"2\" of shot 2 \"SH020\"" } },
        { { "set-length", "demo.xml", "--panel", "SH010/2", "--length", "16" }, { "panel 2 \"2\" of shot 1 \"SH010\"" } },
        { { "set-length", "demo.xml", "--shot", "SH020", "--length", "30" }, { "panel 3 \"3\" of shot 2 \"SH020\"" } },
        // SH080 shows its panels through its time warp: all three now show more frames.
        { { "set-length", "demo.xml", "--shot", "SH080", "--length", "30" },
            { "panel 1 \"1\" of shot 8 \"SH080\"", "panel 2 \"2\" of shot 8 \"SH080\"",
                "panel 3 \"3\" of shot 8 \"SH080\"" } },
    };
    for (const auto& [arguments, expected] : cases) {
        restore();
        ASSERT_EQ(sandbox.run(arguments).exitCode, 0) << arguments.join(' ').toStdString();
        QStringList touched;
        for (const QJsonValue& panel : json({ "changes", arguments.at(1), "--json" })["panels"].toArray())
            touched << panel["panel"].toString();
        EXPECT_EQ(touched, expected) << arguments.join(' ').toStdString();
    }
}

// Every command that names a panel takes the same addresses; ids stay true across edits.
TEST_F(ToolEdits, NamesNumbersAndIdsAddressTheSameObject)
{
    const QJsonObject panel = json({ "show", "demo.xml", "--panel", "SH080/3", "--json" })["object"].toObject();
    const QString id = panel["id"].toString();
    for (const QString& address : { QStringLiteral("#8/3"), QStringLiteral("SH080/#3"), id }) {
        EXPECT_EQ(json({ "show", "demo.xml", "--panel", address, "--json" })["object"].toObject(), panel);
        EXPECT_EQ(sandbox.run({ "layers", "demo.xml", "--panel", address }).out,
            sandbox.run({ "layers", "demo.xml", "--panel", "SH080/3" }).out);
    }
    EXPECT_EQ(sandbox.run({ "camera", "demo.xml", "23", "--shot", "#4" }).out, sandbox.run({ "camera", "demo.xml", "140" }).out);
    const QString shot = json({ "show", "demo.xml", "--shot", "SH040", "--json" })["object"].toObject()["id"].toString();
    for (const QString& address : { QStringLiteral("#4"), shot, QStringLiteral("SH040/#1") })
        EXPECT_EQ(sandbox.run({ "camera", "demo.xml", address }).out, sandbox.run({ "camera", "demo.xml", "SH040" }).out);
    const QString moved = json({ "show", "demo.xml", "--panel", "SH040/2", "--json" })["object"].toObject()["id"].toString();
    ASSERT_EQ(sandbox.run({ "move", "demo.xml", "--panel", moved, "--before", "#1/1" }).exitCode, 0);
    EXPECT_EQ(json({ "show", "demo.xml", "--panel", moved, "--json" })["label"].toString(),
        QStringLiteral("panel 1 \"1\" of shot 1 \"SH010\""));
}

} // namespace

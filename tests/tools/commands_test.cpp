// The commands on small projects: golden table and JSON forms, edits, checks and generation.
#include "ToolProcess.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

const QStringList kSmall { "new", "small.xml", "--shots", "3", "--panels-per-shot", "2", "--transition-every",
    "2", "--acts", "2", "--sequences", "2", "--seed", "7", "--layers", "3" };

QJsonObject jsonOf(const ToolRun& run)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(run.out.toUtf8(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    return document.object();
}

class ToolCommands : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(sandbox.run(kSmall).exitCode, 0);
        ASSERT_EQ(sandbox.run({ "demo", "--out", "demo.xml" }).exitCode, 0);
    }

    // Runs a command that must succeed and must print nothing on standard error.
    ToolRun ok(const QStringList& arguments)
    {
        const ToolRun run = sandbox.run(arguments);
        EXPECT_EQ(run.exitCode, 0) << arguments.join(' ').toStdString() << ": " << run.err.toStdString();
        EXPECT_TRUE(run.err.isEmpty()) << run.err.toStdString();
        return run;
    }

    // Runs the command and compares standard output with a golden file.
    void expectGolden(const QStringList& arguments, const QString& golden)
    {
        const ToolRun run = ok(arguments);
        EXPECT_EQ(run.out, goldenText(golden, run.out)) << arguments.join(' ').toStdString();
    }

    QJsonObject outline(const QString& file) { return jsonOf(ok({ "outline", file, "--json" })); }
    QJsonObject shot(const QString& file, int index)
    {
        return outline(file).value("shots")[index].toObject();
    }
    QJsonObject rules(const QStringList& arguments = {})
    {
        return jsonOf(ok(QStringList { "rules", "small.xml", "--json" } + arguments))["rules"].toObject();
    }
    // The names of the shots of the file, in order.
    QStringList shotNames(const QString& file)
    {
        QStringList names;
        for (const QJsonValue& shot : outline(file)["shots"].toArray())
            names << shot["name"].toString();
        return names;
    }

    ToolSandbox sandbox;
};

TEST_F(ToolCommands, GoldenOutputs)
{
    const std::pair<QStringList, const char*> cases[] = {
        { { "demo" }, "demo.txt" },
        { { "outline", "small.xml", "--fps", "24" }, "outline_small.txt" },
        { { "outline", "small.xml", "--json", "--fps", "25" }, "outline_small.json" },
        { { "outline", "demo.xml", "--json" }, "outline_demo.json" },
        { { "at", "small.xml", "50" }, "at_transition.txt" },
        // Shot 1 frames 1-27 (panels 1-11, 12-27), shot 2 28-57 (28-46, 47-57), a transition
        // 46-57, shot 3 46-87 (46-66, 67-87): both sides under the transition, one elsewhere.
        { { "at", "small.xml", "1", "27", "28", "45", "46", "57", "58", "87" }, "at_small_frames.txt" },
        { { "at", "small.xml", "50", "--prefer", "next", "--json", "--fps", "24" },
            "at_transition_next.json" },
        { { "at", "demo.xml", "160", "--json" }, "at_panel.json" },
        { { "rules", "demo.xml" }, "rules_demo.txt" },
        { { "check", "demo.xml" }, "check_demo.txt" },
        { { "layers", "demo.xml", "--panel", "SH080/3" }, "layers_demo.txt" },
        { { "layers", "demo.xml", "--panel", "SH010/1", "--json" }, "layers_demo.json" },
        { { "outline", "small.xml", "--layers" }, "outline_small_layers.txt" },
        // Camera.
        { { "camera", "demo.xml", "140" }, "camera_demo.txt" },
        { { "camera", "demo.xml", "SH040/2" }, "camera_panel.txt" },
        // Layer selection and drawings.
        { { "drawings", "demo.xml", "--panel", "SH080/3" }, "drawings_demo.txt" },
        { { "drawings", "demo.xml", "--panel", "SH010/1", "--json" }, "drawings_demo.json" },
        { { "defaults" }, "defaults_builtin.txt" },
    };
    for (const auto& [arguments, golden] : cases)
        expectGolden(arguments, QString::fromLatin1(golden));
}

TEST_F(ToolCommands, AnImageFieldsImageIsADrawingOfItsPanel)
{
    ok({ "fields", "demo.xml", "--add", "Sketch", "--image" });
    ok({ "set", "demo.xml", "--panel", "SH080/3", "--field", "Sketch", "--value", "sketches/sh080-3.png" });
    expectGolden({ "drawings", "demo.xml", "--panel", "SH080/3" }, "drawings_image_field.txt");
}

TEST_F(ToolCommands, NewMakesWhatItIsAskedForAndTheSameSeedTheSameFile)
{
    const QStringList options { "--shots", "25", "--panels-per-shot", "3", "--transition-every", "5",
        "--acts", "3", "--sequences", "0", "--seed", "42" };
    // Without sequences no shot has one; the counts are what was asked for.
    expectTranscript(sandbox, { QStringList { "new", "a.xml" } + options, { "outline", "a.xml", "--json" } },
        "new_asked.txt");
    ok(QStringList { "new", "b.xml" } + options);
    EXPECT_EQ(sandbox.read("a.xml"), sandbox.read("b.xml"));
    ok({ "new", "c.xml", "--shots", "25", "--panels-per-shot", "3", "--seed", "43" });
    EXPECT_NE(sandbox.read("a.xml"), sandbox.read("c.xml"));
    // Large enough for the bars of generating and naming, which a pipe as standard error (ok() checks) never
    // gets.
    ok({ "new", "large.xml", "--shots", "2500", "--panels-per-shot", "1" });
}

// An inserted shot takes the proposed name and its neighbours' groups, and the sample's
// automatically named last shot moves; before an automatic shot the rules propose nothing,
// so the new shot stays automatic. SH060 is left off the rules: a warning says so.
TEST_F(ToolCommands, InsertedShotsTakeTheProposedNameAndTheirNeighboursGroups)
{
    expectTranscript(sandbox,
        { { "insert-shot", "demo.xml", "--after", "SH060", "--panels", "2", "--length", "10" },
            { "show", "demo.xml", "--shot", "SH065" }, { "insert-shot", "small.xml", "--before", "1" },
            { "show", "small.xml", "--shot", "#1" } },
        "insert_shot.txt");
    EXPECT_EQ(shotNames("small.xml"), QStringList({ "1", "2", "3", "4" }));
}

// Automatic panel names count positions and step over the names that custom ones hold.
TEST_F(ToolCommands, InsertedPanelsAreNamedInsideTheirShot)
{
    expectTranscript(sandbox,
        { { "insert-panel", "demo.xml", "--shot", "SH050", "--after", "2A" },
            { "insert-panel", "demo.xml", "--shot", "SH050", "--before", "1", "--length", "5" } },
        "insert_panel.txt");
    QStringList panels;
    for (const QJsonValue& panel : shot("demo.xml", 4)["panels"].toArray())
        panels << panel["name"].toString();
    EXPECT_EQ(panels, QStringList({ "1", "2", "2A", "2B", "5", "6" }));
}

// Refusals and findings say one sentence on standard error (status 1, or 64 for bad
// usage) and leave the file as it was.
TEST_F(ToolCommands, RefusalsAndFindingsLeaveTheFileAsItWas)
{
    const QByteArray before = sandbox.read("demo.xml");
    expectTranscript(sandbox,
        { { "at", "small.xml", "88" }, { "camera", "demo.xml", "999" },
            { "insert-shot", "demo.xml", "--after", "SH020" },
            { "insert-shot", "demo.xml", "--after", "SH999" },
            { "insert-shot", "demo.xml", "--after", "SH010", "--sequence", "SQ020" },
            { "insert-shot", "demo.xml", "--after", "SH010", "--before", "SH020" },
            { "insert-panel", "demo.xml", "--shot", "SH050", "--after", "9" },
            { "insert-panel", "demo.xml", "--after", "1" },
            { "rules", "demo.xml", "--set", "shot.numberOfZeros=3", "shot.colour=red" },
            { "rules", "demo.xml", "--set", "shot.autoIncrementValue=0" },
            { "rules", "demo.xml", "--set", "panel.autoIncrementRule=roman" },
            { "rules", "demo.xml", "--set", "enabledAct" } },
        "refusals.txt");
    EXPECT_EQ(sandbox.read("demo.xml"), before);
}

// Setting a rule turns the override on and keeps the other values; the file keeps them
// and the names follow; turning the override off brings the preferences back. Then the
// rules in force come from the preference file, but the demo's record overrides them.
TEST_F(ToolCommands, RulesSetAndInForce)
{
    expectTranscript(sandbox,
        { { "rules", "small.xml", "--json" },
            { "rules", "small.xml", "--json", "--set", "shot.automaticLeadingZeros=true",
                "shot.numberOfZeros=3" },
            { "rules", "small.xml", "--json" }, { "outline", "small.xml" },
            { "rules", "small.xml", "--set", "overloadingPref=false" }, { "outline", "small.xml" } },
        "rules_set.txt");
    sandbox.write("prefs.txt",
        "bool ST_SHOT_NAME_AUTOMATIC_LEADING_ZEROS = true\nint ST_SHOT_NAME_NUMBER_OF_ZEROS = 4\n");
    sandbox.setEnvironment("KROLLE_PREFERENCES", sandbox.path("prefs.txt"));
    EXPECT_EQ(shotNames("small.xml"), QStringList({ "0001", "0002", "0003" }));
    EXPECT_EQ(rules().value("shot")["numberOfZeros"].toInt(), 4);
    EXPECT_EQ(shotNames("demo.xml").first(), "SH010");
}

TEST_F(ToolCommands, DefaultLayersComeFromThePreferenceFileDamagedEntriesIncluded)
{
    sandbox.write("prefs.txt", "string DEFAULT_LAYERS = Sky;3;1;13;2;80;1;;Hero;1;;Cam;x;y\n");
    sandbox.setEnvironment("KROLLE_PREFERENCES", sandbox.path("prefs.txt"));
    expectGolden({ "defaults" }, "defaults_preferences.txt");
}

// Each damage of the demo, checked as table and as JSON: check_damaged.txt.
TEST_F(ToolCommands, CheckReportsWhatIsWrong)
{
    const QByteArray demo = sandbox.read("demo.xml");
    // the text replaced in the demo and its replacement: a shot name used twice in a
    // sequence, an empty custom name, a name off the rules, a sequence name back after
    // another, an impossible rule
    const std::pair<QByteArray, QByteArray> damages[] = { { "name=\"SH020\"", "name=\"SH010\"" },
        { "name=\"SH040\" nameFlag=\"2\"", "name=\"\" nameFlag=\"2\"" },
        { "name=\"SH100\"", "name=\"SH105\"" }, { "sequenceName=\"SQ040\"", "sequenceName=\"SQ010\"" },
        { "autoIncrementRule=\"4\" sceneNameIncrementValue=\"10\"",
            "autoIncrementRule=\"4\" sceneNameIncrementValue=\"0\"" } };
    QString shown;
    for (const auto& [from, to] : damages) {
        QByteArray damaged = demo;
        const int at = damaged.indexOf(from);
        ASSERT_GE(at, 0) << from.constData();
        sandbox.write("damaged.xml", damaged.replace(at, from.size(), to));
        shown += sandbox.transcript({ { "check", "damaged.xml" }, { "check", "damaged.xml", "--json" } });
    }
    EXPECT_EQ(shown, goldenText("check_damaged.txt", shown));
}

// The sample files under examples/ are made by the tool; they must stay what it makes today.
TEST(ToolExamples, AreWhatTheToolMakesAndCheckClean)
{
    ToolSandbox sandbox;
    const std::pair<const char*, QStringList> examples[] = {
        { "demo.xml", { "demo", "--out", "demo.xml" } },
        { "generated.xml",
            { "new", "generated.xml", "--shots", "40", "--panels-per-shot", "5", "--transition-every", "8",
                "--acts", "2", "--sequences", "4", "--seed", "2024", "--layers", "4" } },
    };
    for (const auto& [name, makeIt] : examples) {
        const QString bundled = QStringLiteral(KROLLE_SOURCE_DIR "/examples/") + QLatin1String(name);
        const ToolRun check = sandbox.run({ "check", bundled });
        EXPECT_EQ(check.exitCode, 0) << check.out.toStdString() << check.err.toStdString();
        ASSERT_EQ(sandbox.run(makeIt).exitCode, 0);
        QFile file(bundled);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_TRUE(file.readAll() == sandbox.read(QLatin1String(name)))
            << name << " differs from what the tool makes: regenerate it with krolle "
            << makeIt.join(' ').toStdString();
    }
}

} // namespace

// Tracking: set by hand, written by the tool's own edits, listed and filtered by date and flag.
TEST_F(ToolCommands, ChangesShowWhatTrackAndEditsTouched)
{
    const std::pair<QStringList, const char*> cases[] = {
        { { "changes", "demo.xml" }, "changes_none.txt" },
        { { "track", "demo.xml", "--panel", "SH010/1", "--note", "new pose" }, "track_demo.txt" },
        { { "track", "demo.xml", "--panel", "SH020/2", "--off" }, nullptr },
        { { "changes", "demo.xml" }, "changes_demo.txt" },
        { { "changes", "demo.xml", "--tracked", "--json" }, "changes_demo_tracked.json" },
        { { "changes", "demo.xml", "--since", "2026-03-11" }, "changes_none.txt" },
    };
    for (const auto& [arguments, golden] : cases) {
        if (golden)
            expectGolden(arguments, QString::fromLatin1(golden));
        else
            ok(arguments);
    }
    // The tool's own edits track the panel they touch; a date that is no date is bad usage.
    expectTranscript(sandbox,
        { { "fields", "small.xml", "--add", "Dialogue" },
            { "set", "small.xml", "--panel", "2/1", "--field", "Dialogue", "--value", "Hi" },
            { "changes", "small.xml", "--json" }, { "changes", "small.xml", "--since", "someday" } },
        "changes_edits.txt");
}

// Info fields: defined, edited and valued through the tool, on a machine without a
// display (no DISPLAY, no QT_QPA_PLATFORM): reading turns plain values into rich text.
TEST_F(ToolCommands, InfoFieldsDefinedValuedAndShown)
{
    sandbox.unsetEnvironment(QStringLiteral("DISPLAY"));
    sandbox.unsetEnvironment(QStringLiteral("QT_QPA_PLATFORM"));
    const std::pair<QStringList, const char*> cases[] = {
        { { "fields", "small.xml", "--add", "Dialogue" }, "fields_add.txt" },
        { { "set", "small.xml", "--panel", "1/1", "--field", "Dialogue", "--value", "Hello\nthere" },
            "set_panel.txt" },
        { { "fields", "small.xml", "--add", "Action", "--before", "Dialogue" }, nullptr },
        { { "fields", "small.xml", "--add", "Cover", "--image", "--project" }, nullptr },
        { { "set", "small.xml", "--project", "--field", "Cover", "--value", "img/cover.png" }, nullptr },
        { { "set", "small.xml", "--panel", "2/2", "--field", "Action", "--value", "Runs <off>" }, nullptr },
        { { "fields", "small.xml", "--hide", "Action" }, "fields_hidden.txt" },
        { { "outline", "small.xml", "--fields" }, "outline_fields.txt" },
        { { "fields", "small.xml", "--show", "Action" }, nullptr },
        { { "fields", "small.xml", "--rename", "Action", "Move" }, nullptr },
        { { "fields", "small.xml", "--move", "Dialogue", "--before", "Move" }, nullptr },
    };
    for (const auto& [arguments, golden] : cases) {
        if (golden)
            expectGolden(arguments, QString::fromLatin1(golden));
        else
            ok(arguments);
    }
    // Removing a field takes every value with it; unknown names change nothing.
    QString shown = sandbox.transcript({ { "outline", "small.xml", "--fields", "--json" },
        { "fields", "small.xml", "--remove", "Dialogue" } });
    const QByteArray before = sandbox.read("small.xml");
    shown += sandbox.transcript({ { "fields", "small.xml", "--remove", "Dialogue" },
        { "set", "small.xml", "--panel", "1/9", "--field", "Move", "--value", "x" },
        { "set", "small.xml", "--project", "--field", "Move", "--value", "x" },
        { "fields", "small.xml", "--json" } });
    EXPECT_EQ(shown, goldenText("fields_remove.txt", shown));
    EXPECT_EQ(sandbox.read("small.xml"), before);
}

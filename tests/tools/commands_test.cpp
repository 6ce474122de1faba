// The commands on small projects: golden table and JSON forms, edits, checks and generation.
#include "ToolProcess.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

#include <tuple>

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
        { { "at", "small.xml", "50" }, "at_transition.txt" },
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

TEST_F(ToolCommands, TheJsonOutlineAgreesWithTheLibraryCounts)
{
    const QJsonObject outline = this->outline("demo.xml");
    EXPECT_EQ(outline.value("krolle").toString(), "outline");
    EXPECT_EQ(outline.value("schema").toInt(), 1);
    const QJsonObject counts = outline.value("counts").toObject();
    int panels = 0;
    for (const QJsonValue& shot : outline.value("shots").toArray())
        panels += shot["panels"].toArray().size();
    EXPECT_EQ(panels, counts.value("panels").toInt());
    // Each list has as many entries as it counts, and the counts reach what the sample promises.
    const std::pair<const char*, int> minimums[]
        = { { "shots", 10 }, { "panels", 40 }, { "acts", 2 }, { "sequences", 2 }, { "transitions", 1 } };
    for (const auto& [key, minimum] : minimums) {
        EXPECT_GE(counts.value(key).toInt(), minimum) << key;
        if (QLatin1String(key) != "panels") { // panels are listed inside their shots
            EXPECT_EQ(outline.value(key).toArray().size(), counts.value(key).toInt()) << key;
        }
    }
}

TEST_F(ToolCommands, NewMakesWhatItIsAskedForAndTheSameSeedTheSameFile)
{
    const QStringList options { "--shots", "25", "--panels-per-shot", "3", "--transition-every", "5",
        "--acts", "3", "--sequences", "0", "--seed", "42" };
    const ToolRun made = ok(QStringList { "new", "a.xml" } + options);
    const QJsonObject outline = this->outline("a.xml");
    EXPECT_EQ(made.out,
        QStringLiteral("wrote a.xml: 3 acts, 0 sequences, 25 shots, 75 panels, 4 transitions, %1 frames\n")
            .arg(outline.value("counts").toObject().value("frames").toInt()));
    EXPECT_FALSE(outline.value("sequencesExist").toBool());
    EXPECT_TRUE(outline.value("sequences").toArray().isEmpty());
    EXPECT_EQ(outline.value("shots").toArray().first().toObject().value("sequence"), QJsonValue());
    ok(QStringList { "new", "b.xml" } + options);
    EXPECT_EQ(sandbox.read("a.xml"), sandbox.read("b.xml"));
    ok({ "new", "c.xml", "--shots", "25", "--panels-per-shot", "3", "--seed", "43" });
    EXPECT_NE(sandbox.read("a.xml"), sandbox.read("c.xml"));
    // Large enough for the bars of generating and naming, which a pipe as standard error (ok() checks) never
    // gets.
    ok({ "new", "large.xml", "--shots", "2500", "--panels-per-shot", "1" });
}

TEST_F(ToolCommands, FramesResolveToTheShotsAndPanelsAroundThem)
{
    // small.xml: shot 1 frames 1-27 (panels 1-11, 12-27), shot 2 28-57 (28-46, 47-57),
    // a transition 46-57, shot 3 46-87 (46-66, 67-87).
    // frame, shot and panel numbers on the previous side, then on the next side (0: one side only)
    const std::tuple<unsigned, int, int, int, int> cases[]
        = { { 1, 1, 1, 0, 0 }, { 27, 1, 2, 0, 0 }, { 28, 2, 1, 0, 0 }, { 45, 2, 1, 0, 0 }, { 46, 2, 1, 3, 1 },
              { 57, 2, 2, 3, 1 }, { 58, 3, 1, 0, 0 }, { 87, 3, 2, 0, 0 } };
    for (const auto& [frame, previousShot, previousPanel, nextShot, nextPanel] : cases) {
        const QJsonObject answer = jsonOf(ok({ "at", "small.xml", QString::number(frame), "--json" }));
        EXPECT_EQ(answer.value("transition").isNull(), nextShot == 0) << frame;
        QList<int> numbers;
        for (const QJsonValue& side : answer.value("sides").toArray())
            numbers << side["shot"]["number"].toInt() << side["panel"]["number"].toInt();
        EXPECT_EQ(numbers,
            nextShot ? QList<int>({ previousShot, previousPanel, nextShot, nextPanel })
                     : QList<int>({ previousShot, previousPanel }))
            << frame;
    }
}

TEST_F(ToolCommands, InsertedShotsTakeTheProposedNameAndTheirNeighboursGroups)
{
    // (It puts SH060 off the rules, which a warning on standard error says: see the conventions' goldens.)
    const QString out
        = sandbox.run({ "insert-shot", "demo.xml", "--after", "SH060", "--panels", "2", "--length", "10" }).out;
    EXPECT_EQ(out.section('\n', 0, 0),
        QStringLiteral(
            "inserted shot 7 \"SH065\" (custom name, frames 222-241) after shot 6 \"SH060\"; saved "
            "demo.xml"));
    // The sample's last shot is named automatically: it moves.
    EXPECT_TRUE(out.contains("shot 13  0x0000000000000034  12      13")) << out.toStdString();
    const QJsonObject inserted = shot("demo.xml", 6);
    EXPECT_EQ(inserted["name"].toString() + inserted["act"].toString() + inserted["sequence"].toString(),
        "SH065ConflictSQ030");
    EXPECT_TRUE(inserted["custom"].toBool());
    EXPECT_EQ(inserted["panels"].toArray().size(), 2);
    EXPECT_EQ(inserted["length"].toInt(), 20);

    // Before an automatically named shot the rules propose nothing: the new shot stays automatic.
    ok({ "insert-shot", "small.xml", "--before", "1" });
    EXPECT_EQ(shotNames("small.xml"), QStringList({ "1", "2", "3", "4" }));
    EXPECT_FALSE(shot("small.xml", 0)["custom"].toBool());
}

TEST_F(ToolCommands, InsertedPanelsAreNamedInsideTheirShot)
{
    EXPECT_EQ(ok({ "insert-panel", "demo.xml", "--shot", "SH050", "--after", "2A" }).out.section('\n', 0, 0),
        QStringLiteral(
            "inserted panel 3 \"2B\" of shot 5 \"SH050\" (custom name, frames 166-177) after panel 2 "
            "\"2A\" of shot 5 \"SH050\"; saved demo.xml"));
    EXPECT_EQ(
        ok({ "insert-panel", "demo.xml", "--shot", "SH050", "--before", "1", "--length", "5" }).out.section('\n', 0, 0),
        QStringLiteral("inserted panel 1 \"1\" of shot 5 \"SH050\" (automatic name, frames 150-154) before "
                       "panel 2 \"2\" of shot 5 \"SH050\"; saved demo.xml"));
    QStringList panels;
    for (const QJsonValue& panel : shot("demo.xml", 4)["panels"].toArray())
        panels << panel["name"].toString();
    // Automatic names count positions and step over the names that custom ones hold.
    EXPECT_EQ(panels, QStringList({ "1", "2", "2A", "2B", "5", "6" }));
}

TEST_F(ToolCommands, RefusalsAndFindingsLeaveTheFileAsItWas)
{
    const QByteArray before = sandbox.read("demo.xml");
    const std::tuple<QStringList, int, const char*> cases[] = {
        { { "at", "small.xml", "88" }, 1,
            "krolle at: frame 88 is outside the shots of small.xml, which end at frame 87\n" },
        // Camera.
        { { "camera", "demo.xml", "999" }, 1,
            "krolle camera: frame 999 is outside the shots of demo.xml, which end at frame 450\n" },
        { { "insert-shot", "demo.xml", "--after", "SH020" }, 1,
            "krolle insert-shot: cannot insert a shot after shot 2 \"SH020\": junction 2 holds a "
            "transition\n" },
        { { "insert-shot", "demo.xml", "--after", "SH999" }, 1,
            "krolle insert-shot: no shot is named \"SH999\"\n" },
        { { "insert-shot", "demo.xml", "--after", "SH010", "--sequence", "SQ020" }, 1,
            "krolle insert-shot: no shot is named \"SH010\" in sequence \"SQ020\"\n" },
        { { "insert-shot", "demo.xml", "--after", "SH010", "--before", "SH020" }, 64,
            "krolle insert-shot: give exactly one of --after, --before (see krolle insert-shot --help)\n" },
        { { "insert-panel", "demo.xml", "--shot", "SH050", "--after", "9" }, 1,
            "krolle insert-panel: no panel of shot 5 \"SH050\" is named \"9\"\n" },
        { { "insert-panel", "demo.xml", "--after", "1" }, 64,
            "krolle insert-panel: missing --shot NAME (see krolle insert-panel --help)\n" },
        { { "rules", "demo.xml", "--set", "shot.numberOfZeros=3", "shot.colour=red" }, 64,
            "krolle rules: unknown naming rule 'shot.colour' (see krolle rules --help)\n" },
        { { "rules", "demo.xml", "--set", "shot.autoIncrementValue=0" }, 64,
            "krolle rules: shot.autoIncrementValue takes a whole number from 1 to 1000000, not '0' (see "
            "krolle "
            "rules --help)\n" },
        { { "rules", "demo.xml", "--set", "panel.autoIncrementRule=roman" }, 64,
            "krolle rules: panel.autoIncrementRule takes one of numeric, alpha, alpha-z-prefix, "
            "alpha-z-repeat, "
            "by-n (or 0 to 4), not 'roman' (see krolle rules --help)\n" },
        { { "rules", "demo.xml", "--set", "enabledAct" }, 64,
            "krolle rules: 'enabledAct' is not of the form KEY=VALUE (see krolle rules --help)\n" },
    };
    for (const auto& [arguments, exitCode, message] : cases) {
        const ToolRun run = sandbox.run(arguments);
        EXPECT_EQ(run.exitCode, exitCode) << arguments.join(' ').toStdString();
        EXPECT_EQ(run.err, QString::fromUtf8(message));
        EXPECT_TRUE(run.out.isEmpty()) << arguments.join(' ').toStdString();
        EXPECT_EQ(sandbox.read("demo.xml"), before) << arguments.join(' ').toStdString();
    }
}

TEST_F(ToolCommands, SettingARuleTurnsTheOverrideOnAndKeepsTheOtherValues)
{
    const QJsonObject preferences = rules();
    EXPECT_FALSE(preferences["overloadingPref"].toBool());
    const QJsonObject set = rules({ "--set", "shot.automaticLeadingZeros=true", "shot.numberOfZeros=3" });
    QJsonObject expected = preferences;
    QJsonObject shot = expected["shot"].toObject();
    shot.insert("automaticLeadingZeros", true);
    shot.insert("numberOfZeros", 3);
    expected.insert("shot", shot);
    expected.insert("overloadingPref", true);
    EXPECT_EQ(set, expected);
    // The file keeps it, and the names follow.
    EXPECT_EQ(rules(), expected);
    EXPECT_EQ(shotNames("small.xml"), QStringList({ "001", "002", "003" }));
    // Turning the override off brings the preferences back.
    ok({ "rules", "small.xml", "--set", "overloadingPref=false" });
    EXPECT_EQ(shotNames("small.xml"), QStringList({ "1", "2", "3" }));
}

TEST_F(ToolCommands, RulesInForceComeFromThePreferencesUntilOverridden)
{
    sandbox.write("prefs.txt",
        "bool ST_SHOT_NAME_AUTOMATIC_LEADING_ZEROS = true\nint ST_SHOT_NAME_NUMBER_OF_ZEROS = 4\n");
    sandbox.setEnvironment("KROLLE_PREFERENCES", sandbox.path("prefs.txt"));
    EXPECT_EQ(shotNames("small.xml"), QStringList({ "0001", "0002", "0003" }));
    EXPECT_EQ(rules().value("shot")["numberOfZeros"].toInt(), 4);
    // The demo's record overrides the preferences: its names do not move.
    EXPECT_EQ(shotNames("demo.xml").first(), "SH010");
}

TEST_F(ToolCommands, DefaultLayersComeFromThePreferenceFileDamagedEntriesIncluded)
{
    sandbox.write("prefs.txt", "string DEFAULT_LAYERS = Sky;3;1;13;2;80;1;;Hero;1;;Cam;x;y\n");
    sandbox.setEnvironment("KROLLE_PREFERENCES", sandbox.path("prefs.txt"));
    expectGolden({ "defaults" }, "defaults_preferences.txt");
}

TEST_F(ToolCommands, CheckReportsWhatIsWrong)
{
    const QByteArray demo = sandbox.read("demo.xml");
    // what is wrong, the text replaced in the demo, its replacement, the finding
    const std::tuple<const char*, QByteArray, QByteArray, const char*> cases[] = {
        { "shot name used twice in a sequence", "name=\"SH020\"", "name=\"SH010\"",
            "demo.xml: shot 2 \"SH010\": the name is also used by shot 1 \"SH010\" in the same sequence\n" },
        { "empty custom name", "name=\"SH040\" nameFlag=\"2\"", "name=\"\" nameFlag=\"2\"",
            "demo.xml: shot 4 \"\": its info record holds an empty custom name\n" },
        { "name off the rules", "name=\"SH100\"", "name=\"SH105\"",
            "demo.xml: shot 10 \"SH105\": the name does not follow the shot naming rules: expected SH100 "
            "between SH090 and SH110\n" },
        { "sequence name back after another", "sequenceName=\"SQ040\"", "sequenceName=\"SQ010\"",
            "demo.xml: the sequence \"SQ010\" starting at shot 9 \"SH090\" is separate from the sequence of "
            "the same "
            "name starting at shot 1 \"SH010\"\n" },
        { "impossible rule", "autoIncrementRule=\"4\" sceneNameIncrementValue=\"10\"",
            "autoIncrementRule=\"4\" sceneNameIncrementValue=\"0\"",
            "demo.xml: the shot naming rules count by steps of 0, which makes no names\n" },
    };
    for (const auto& [title, from, to, finding] : cases) {
        QByteArray damaged = demo;
        const int at = damaged.indexOf(from);
        ASSERT_GE(at, 0) << title;
        damaged.replace(at, from.size(), to);
        sandbox.write("damaged.xml", damaged);
        const ToolRun run = sandbox.run({ "check", "damaged.xml" });
        EXPECT_EQ(run.exitCode, 1) << title;
        EXPECT_TRUE(run.out.contains(QString::fromUtf8(finding).replace("demo.xml", "damaged.xml")))
            << title << "\n"
            << run.out.toStdString();
        EXPECT_FALSE(
            jsonOf(sandbox.run({ "check", "damaged.xml", "--json" })).value("findings").toArray().isEmpty())
            << title;
    }
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
    ok({ "fields", "small.xml", "--add", "Dialogue" });
    ok({ "set", "small.xml", "--panel", "2/1", "--field", "Dialogue", "--value", "Hi" });
    const QJsonArray touched = jsonOf(ok({ "changes", "small.xml", "--json" }))["panels"].toArray();
    ASSERT_EQ(touched.size(), 1);
    EXPECT_TRUE(touched[0]["panel"].toString().startsWith("panel 1 ")) << touched[0]["panel"].toString().toStdString();
    EXPECT_EQ(sandbox.run({ "changes", "small.xml", "--since", "someday" }).exitCode, 64);
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
    const QJsonObject panels = jsonOf(ok({ "outline", "small.xml", "--fields", "--json" }));
    const QJsonObject second = panels["shots"][1]["panels"][1]["fields"].toObject();
    EXPECT_EQ(second, (QJsonObject { { "Dialogue", "" }, { "Move", "Runs <off>" } }));
    EXPECT_EQ(panels["fieldNames"].toArray(), (QJsonArray { "Dialogue", "Move" }));

    // Removing a field takes every value with it; unknown names change nothing.
    ok({ "fields", "small.xml", "--remove", "Dialogue" });
    const QByteArray before = sandbox.read("small.xml");
    const std::pair<QStringList, const char*> refused[] = {
        { { "fields", "small.xml", "--remove", "Dialogue" }, "small.xml has no panel field named \"Dialogue\"" },
        { { "set", "small.xml", "--panel", "1/9", "--field", "Move", "--value", "x" }, "\"9\"" },
        { { "set", "small.xml", "--project", "--field", "Move", "--value", "x" }, "no project field named \"Move\"" },
    };
    for (const auto& [arguments, message] : refused) {
        const ToolRun run = sandbox.run(arguments);
        EXPECT_EQ(run.exitCode, 1) << arguments.join(' ').toStdString();
        EXPECT_TRUE(run.err.contains(QString::fromUtf8(message))) << run.err.toStdString();
    }
    EXPECT_EQ(sandbox.read("small.xml"), before);
    const QJsonArray fields = jsonOf(ok({ "fields", "small.xml", "--json" }))["fields"].toArray();
    ASSERT_EQ(fields.size(), 2);
    EXPECT_EQ(fields[1]["name"].toString(), "Move");
}

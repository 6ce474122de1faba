// Export and import: golden cuts and shot lists, the OTIO document's own rules, the
// round trip of a board through its cut, an editorial cut, and cuts that are refused.
#include "ToolProcess.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

#include <map>

namespace {

// The keys of each OTIO schema, as OpenTimelineIO itself writes them.
const std::map<QString, QStringList> kSchemaKeys {
    { "Timeline.1", { "OTIO_SCHEMA", "metadata", "name", "global_start_time", "tracks" } },
    { "Stack.1", { "OTIO_SCHEMA", "metadata", "name", "source_range", "effects", "markers", "enabled", "color", "children" } },
    { "Track.1", { "OTIO_SCHEMA", "metadata", "name", "source_range", "effects", "markers", "enabled", "color", "children", "kind" } },
    { "Clip.2", { "OTIO_SCHEMA", "metadata", "name", "source_range", "effects", "markers", "enabled", "color",
                     "media_references", "active_media_reference_key" } },
    { "Transition.1", { "OTIO_SCHEMA", "metadata", "name", "in_offset", "out_offset", "transition_type" } },
    { "Marker.2", { "OTIO_SCHEMA", "metadata", "name", "color", "marked_range", "comment" } },
    { "MissingReference.1", { "OTIO_SCHEMA", "metadata", "name", "available_range", "available_image_bounds" } },
    { "ExternalReference.1",
        { "OTIO_SCHEMA", "metadata", "name", "available_range", "available_image_bounds", "target_url" } },
    { "RationalTime.1", { "OTIO_SCHEMA", "rate", "value" } },
    { "TimeRange.1", { "OTIO_SCHEMA", "duration", "start_time" } },
};

// Every object with a schema has exactly its keys; every number is finite.
void expectSchemas(const QJsonValue& value, const QString& place)
{
    if (value.isArray()) {
        const QJsonArray array = value.toArray();
        for (int i = 0; i < array.size(); ++i)
            expectSchemas(array[i], place + QStringLiteral("[%1]").arg(i));
        return;
    }
    if (!value.isObject())
        return;
    const QJsonObject object = value.toObject();
    if (object.contains("OTIO_SCHEMA")) {
        const auto keys = kSchemaKeys.find(object["OTIO_SCHEMA"].toString());
        ASSERT_NE(keys, kSchemaKeys.end()) << place.toStdString();
        QStringList sorted = keys->second;
        sorted.sort();
        EXPECT_EQ(object.keys(), sorted) << place.toStdString();
    }
    for (auto it = object.begin(); it != object.end(); ++it) {
        if (it.key() != "metadata")
            expectSchemas(it.value(), place + "." + it.key());
    }
}

QJsonObject parse(const QByteArray& bytes)
{
    return QJsonDocument::fromJson(bytes).object();
}

class Interchange : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(sandbox.run({ "demo", "--out", "demo.xml" }).exitCode, 0); }

    ToolRun ok(const QStringList& arguments)
    {
        const ToolRun run = sandbox.run(arguments);
        EXPECT_EQ(run.exitCode, 0) << arguments.join(' ').toStdString() << ": " << run.err.toStdString();
        return run;
    }

    ToolSandbox sandbox;
};

TEST_F(Interchange, GoldenExports)
{
    ok({ "new", "small.xml", "--shots", "3", "--panels-per-shot", "2", "--transition-every", "2", "--seed", "7" });
    const std::pair<QStringList, const char*> cases[] = {
        { { "export", "small.xml", "--format", "otio" }, "export_small.otio" },
        { { "export", "demo.xml", "--format", "edl", "--fps", "25" }, "export_demo.edl" },
        { { "export", "demo.xml", "--format", "csv" }, "export_demo.csv" },
        { { "export", "demo.xml", "--format", "csv", "--by", "shot", "--fps", "30" }, "export_demo_shots.csv" },
    };
    for (const auto& [arguments, golden] : cases) {
        const ToolRun run = ok(arguments);
        EXPECT_EQ(run.out, goldenText(QString::fromLatin1(golden), run.out)) << golden;
    }
}

TEST_F(Interchange, TheCutKeepsTheBoardsFramesAndOtiosRules)
{
    for (const char* by : { "panel", "shot" }) {
        const QJsonObject timeline = parse(ok({ "export", "demo.xml", "--format", "otio", "--by", by }).out.toUtf8());
        expectSchemas(timeline, "timeline");
        const QJsonArray items = timeline["tracks"]["children"][0]["children"].toArray();
        double frames = 0;
        int markers = 0;
        for (int i = 0; i < items.size(); ++i) {
            const QJsonObject item = items[i].toObject();
            if (item["OTIO_SCHEMA"] == "Clip.2") {
                frames += item["source_range"]["duration"]["value"].toDouble();
                markers += item["markers"].toArray().size();
                continue;
            }
            // Between two clips, no longer on either side than the clip there.
            ASSERT_TRUE(i > 0 && i + 1 < items.size()) << by;
            EXPECT_EQ(items[i - 1]["OTIO_SCHEMA"], "Clip.2");
            EXPECT_EQ(items[i + 1]["OTIO_SCHEMA"], "Clip.2");
            EXPECT_LE(item["in_offset"]["value"].toDouble(), items[i - 1]["source_range"]["duration"]["value"].toDouble());
            EXPECT_LE(item["out_offset"]["value"].toDouble(), items[i + 1]["source_range"]["duration"]["value"].toDouble());
        }
        EXPECT_EQ(frames, 450) << by;
        EXPECT_EQ(markers, 12) << by;
    }
}

TEST_F(Interchange, ABoardComesBackFromItsCutAsItWas)
{
    ok({ "fields", "demo.xml", "--add", "Dialogue" });
    ok({ "fields", "demo.xml", "--add", "Notes" });
    ok({ "fields", "demo.xml", "--hide", "Notes" });
    ok({ "set", "demo.xml", "--panel", "SH010/2", "--field", "Dialogue", "--value", "Hello, \"world\"" });
    ok({ "set", "demo.xml", "--panel", "SH030/1", "--field", "Notes", "--value", "a <b> & c" });
    QByteArray board = sandbox.read("demo.xml");
    board.replace(board.indexOf("trackingFlag=\"false\" trackingDate=\"\""), 36, "trackingFlag=\"true\" trackingDate=\"2026-11-20T10:30:00\"");
    sandbox.write("demo.xml", board);
    EXPECT_TRUE(ok({ "export", "demo.xml", "--format", "csv" })
                    .out.contains(",00:00:00:11,,true,2026-11-20T10:30:00\r\nOpening,SQ010,SH010,2,13,22,10,00:00:00:12,"
                                  "00:00:00:21,\"Hello, \"\"world\"\"\",false,\r\n"));
    ok({ "fields", "demo.xml", "--add", "Sketch", "--image" });
    ok({ "set", "demo.xml", "--panel", "SH010/1", "--field", "Sketch", "--value", "images/SH010_1.png" });
    const QJsonObject cut = parse(ok({ "export", "demo.xml", "--format", "otio" }).out.toUtf8());
    const QJsonValue clip = cut["tracks"]["children"][0]["children"][0];
    const QJsonObject media = clip["media_references"]["DEFAULT_MEDIA"].toObject();
    expectSchemas(media, "media");
    EXPECT_EQ(media["target_url"], "images/SH010_1.png");
    for (const char* by : { "panel", "shot" }) {
        ok({ "export", "demo.xml", "--format", "otio", "--by", by, "--out", "cut.otio" });
        ASSERT_TRUE(QDir().mkpath(sandbox.path("back")));
        ok({ "import", "cut.otio", "--out", "back/demo.xml", "--force" });
        ok({ "export", "back/demo.xml", "--format", "otio", "--by", by, "--out", "again.otio" });
        EXPECT_EQ(sandbox.read("again.otio"), sandbox.read("cut.otio")) << by;
        EXPECT_EQ(ok({ "outline", "back/demo.xml", "--fields" }).out.section('\n', 1),
            ok({ "outline", "demo.xml", "--fields" }).out.section('\n', 1));
        EXPECT_EQ(ok({ "fields", "back/demo.xml" }).out.section('\n', 1), ok({ "fields", "demo.xml" }).out.section('\n', 1));
    }
    // Editorial trims the first panel's clip from 12 frames to 7: the board comes back shorter by as much.
    ok({ "export", "demo.xml", "--format", "otio", "--out", "cut.otio" });
    QByteArray text = sandbox.read("cut.otio");
    const QByteArray first = "\"value\": 12\n";
    text.replace(text.indexOf(first, text.indexOf("\"source_range\"")), first.size(), "\"value\": 7\n");
    sandbox.write("trimmed.otio", text);
    ok({ "import", "trimmed.otio", "--out", "trimmed.xml" });
    EXPECT_TRUE(ok({ "outline", "trimmed.xml" }).out.contains("445 frames"));
}

// Only the first video track is read, with a note on standard error for what is skipped:
// 50 + 40 (80 at 50 fps) + a 12-frame gap + a 36-frame nested stack; the dissolve takes
// 5 frames each side of the cut after frame 50.
TEST_F(Interchange, AnEditorialCutGivesAShotPerItemOfItsFirstVideoTrack)
{
    sandbox.copyData("editorial.otio");
    expectTranscript(sandbox,
        { { "import", "editorial.otio", "--out", "cut.xml", "--json" }, { "outline", "cut.xml" } },
        "import_editorial.txt");
}

TEST_F(Interchange, BadCutsAreRefusedWithThePlaceAndNoFile)
{
    const QByteArray clip = R"({"OTIO_SCHEMA": "Clip.2", "name": "a", "source_range": {"OTIO_SCHEMA": "TimeRange.1",
        "start_time": {"OTIO_SCHEMA": "RationalTime.1", "rate": 24, "value": 0},
        "duration": {"OTIO_SCHEMA": "RationalTime.1", "rate": 24, "value": 10}}})";
    const QByteArray transition = R"({"OTIO_SCHEMA": "Transition.1",
        "in_offset": {"OTIO_SCHEMA": "RationalTime.1", "rate": 24, "value": 4},
        "out_offset": {"OTIO_SCHEMA": "RationalTime.1", "rate": 24, "value": 4}})";
    auto timeline = [](const QByteArray& items) {
        return R"({"OTIO_SCHEMA": "Timeline.1", "tracks": {"OTIO_SCHEMA": "Stack.1", "children": [
            {"OTIO_SCHEMA": "Track.1", "kind": "Video", "children": [)" + items + "]}]}}";
    };
    QByteArray longTransition = transition;
    longTransition.replace("\"value\": 4}}", "\"value\": 11}}");
    QByteArray negative = clip;
    negative.replace("\"value\": 10", "\"value\": -10");
    QByteArray nested = clip;
    for (int i = 0; i < 70; ++i)
        nested = R"({"OTIO_SCHEMA": "Stack.1", "children": [)" + nested + "]}";
    const std::pair<QByteArray, const char*> cases[] = {
        { "{\"OTIO_SCHEMA\": ", "not JSON: " },
        { R"({"OTIO_SCHEMA": "Clip.2"})", "the document: expected a Timeline, found \"Clip.2\"" },
        { timeline(transition + "," + clip), "children[0]: a transition must stand between two items" },
        { timeline(clip + "," + transition + "," + transition + "," + clip), "children[2]: two transitions side by side" },
        { timeline(clip + "," + longTransition + "," + clip), "children[1]: out_offset is longer than the item after it" },
        { timeline(negative), "duration: a duration must be from 0 to" },
        { timeline(QByteArray(clip).replace("\"rate\": 24, \"value\": 10", "\"rate\": 0, \"value\": 10")), "rate: a rate must be above 0" },
        { timeline(QByteArray(clip).replace("\"value\": 10", "\"value\": \"10\"")), "value: expected a finite number" },
        { timeline(nested), "stacks and tracks nest more than 64 deep" },
        { R"({"OTIO_SCHEMA": "Timeline.1", "tracks": {"OTIO_SCHEMA": "Stack.1", "children": []}})", "no video track" },
    };
    for (const auto& [document, message] : cases) {
        sandbox.write("bad.otio", document);
        const ToolRun run = sandbox.run({ "import", "bad.otio", "--out", "bad.xml" });
        EXPECT_EQ(run.exitCode, 2) << message;
        EXPECT_TRUE(run.err.startsWith("krolle import: cannot read bad.otio: ")) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QString::fromLatin1(message))) << run.err.toStdString();
        EXPECT_FALSE(QFile::exists(sandbox.path("bad.xml"))) << message;
    }
}

} // namespace

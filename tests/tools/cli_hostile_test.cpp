// Hostile and damaged files, refused saves, locks and racing edits: every run ends
// with one sentence and a status, and no edit is lost.
#include "ToolProcess.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString kBoard = QStringLiteral("board.xml");

// A board of 3 shots of 3 panels; its blocks are named in the cases below.
void writeBoard(const ToolSandbox& sandbox)
{
    ASSERT_EQ(sandbox.run({ "new", kBoard, "--shots", "3", "--panels-per-shot", "3" }).exitCode, 0);
}

int shotCount(const ToolSandbox& sandbox)
{
    const ToolRun run = sandbox.run({ "outline", kBoard, "--json" });
    return QJsonDocument::fromJson(run.out.toUtf8()).object().value(QStringLiteral("counts")).toObject()
        .value(QStringLiteral("shots")).toInt(-1);
}

// A frame moved by one at the start, middle or end of the top scene (blocks of shots)
// or of shot 2's panels: a hole or an overlap is refused with its place; what stays
// valid loads and is walked to its end by outline and check.
TEST(HostileTimelines, EndWithAnAnswerOrARefusalNamingThePlace)
{
    struct Case
    {
        const char* from;
        const char* to;
        bool refused;
    };
    const Case cases[] = {
        { "first=\"1\" last=\"61\"", "first=\"2\" last=\"61\"", true }, // top, start, hole
        { "first=\"62\" last=\"112\"", "first=\"63\" last=\"112\"", true }, // top, middle, hole
        { "first=\"113\" last=\"166\"", "first=\"113\" last=\"165\"", false }, // top, end, shorter
        { "first=\"1\" last=\"61\"", "first=\"0\" last=\"61\"", true }, // top, start, overlap
        { "first=\"62\" last=\"112\"", "first=\"61\" last=\"112\"", true }, // top, middle, overlap
        { "first=\"113\" last=\"166\"", "first=\"113\" last=\"167\"", false }, // top, end, longer
        { "first=\"1\" last=\"20\"", "first=\"2\" last=\"20\"", true }, // shot, start, hole
        { "first=\"21\" last=\"32\"", "first=\"22\" last=\"32\"", true }, // shot, middle, hole
        { "first=\"33\" last=\"51\"", "first=\"33\" last=\"50\"", true }, // shot, end, hole
        { "first=\"1\" last=\"20\"", "first=\"0\" last=\"20\"", true }, // shot, start, overlap
        { "first=\"21\" last=\"32\"", "first=\"20\" last=\"32\"", true }, // shot, middle, overlap
        { "first=\"33\" last=\"51\"", "first=\"33\" last=\"52\"", false }, // shot, end, longer
    };
    ToolSandbox sandbox;
    writeBoard(sandbox);
    const QByteArray board = sandbox.read(kBoard);
    for (const Case& c : cases) {
        ASSERT_EQ(board.count(c.from), 1) << c.from;
        sandbox.write(QStringLiteral("edited.xml"), QByteArray(board).replace(c.from, c.to));
        for (const char* command : { "outline", "check" }) {
            const ToolRun run = sandbox.run({ command, "edited.xml" });
            EXPECT_EQ(run.exitCode, c.refused ? 2 : 0) << command << " " << c.to << ": " << run.err.toStdString();
            EXPECT_EQ(run.err.contains(QStringLiteral(": line ")), c.refused) << run.err.toStdString();
        }
    }
}

// Each hostile file: status 2 and one sentence, at once.
TEST(HostileFiles, AreRefusedWithOneSentence)
{
    const QByteArray root = "<engineProject version=\"1\" nextId=\"9\">";
    const QByteArray laughs = "<!DOCTYPE p [<!ENTITY a \"hahahahaha\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
                              "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;\">]>";
    const std::pair<QByteArray, const char*> cases[] = {
        { laughs + root + "<scene id=\"1\" name=\"&d;\"/></engineProject>", "document type declarations" },
        { "<!DOCTYPE p [<!ENTITY x SYSTEM \"/etc/passwd\">]>" + root + "&x;</engineProject>",
            "document type declarations" },
        { root + "<scene id=\"1\" name=\"" + QByteArray(17 * 1024 * 1024, 'x') + "\"/></engineProject>",
            "holds more than" },
        { root + QByteArray(100000 * 3, 'a').replace("aaa", "<a>"), "nest deeper than 256" },
        { root + "<scene id=\"1\"><sequence><block first=\"9223372036854775808\" last=\"1\" kind=\"empty\"/>",
            "is not a valid value for \"first\"" },
    };
    ToolSandbox sandbox;
    for (const auto& [content, message] : cases) {
        sandbox.write(kBoard, content);
        const ToolRun run = sandbox.run({ "outline", kBoard });
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_TRUE(run.err.contains(QString::fromUtf8(message))) << run.err.toStdString();
        EXPECT_EQ(run.err.count(QLatin1Char('\n')), 1);
    }
    ASSERT_EQ(::mkfifo(QFile::encodeName(sandbox.path(QStringLiteral("pipe.xml"))).constData(), 0600), 0);
    EXPECT_EQ(sandbox.run({ "outline", "pipe.xml" }).err,
        QStringLiteral("krolle outline: cannot load pipe.xml: is not a regular file (a pipe, socket or device is "
                       "not read)\n"));
}

// A read-only file, a file changed by another program and a held lock are left as
// they are; a lock whose process is gone is taken over.
TEST(GuardedSaves, RefuseWhatWouldLoseWork)
{
    ToolSandbox sandbox;
    writeBoard(sandbox);
    const QString file = sandbox.path(kBoard);
    const QByteArray before = sandbox.read(kBoard);
    QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther);
    ToolRun run = sandbox.run({ "insert-shot", kBoard, "--after", "1" });
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.err, QStringLiteral("krolle insert-shot: cannot save board.xml: is read-only; it is left as it is\n"));
    EXPECT_EQ(sandbox.read(kBoard), before);
    struct stat status = {};
    ASSERT_EQ(::stat(QFile::encodeName(file).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0444u);
    QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::WriteOwner);

    // A lock of this test's own process (alive), then of a process that has ended.
    const QByteArray host = QSysInfo::machineHostName().toUtf8();
    const QByteArray self = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget().section('/', -1).toUtf8();
    sandbox.write(kBoard + QStringLiteral(".lock"), QByteArray::number(qint64(::getpid())) + "\n" + self + "\n" + host + "\n");
    run = sandbox.run({ "insert-shot", kBoard, "--after", "1" });
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.err.contains(QStringLiteral("is being edited by process %1").arg(::getpid()))) << run.err.toStdString();
    EXPECT_EQ(sandbox.read(kBoard), before);
    QProcess gone;
    gone.start(QStringLiteral("true"), QStringList());
    ASSERT_TRUE(gone.waitForStarted());
    const qint64 goneId = gone.processId();
    ASSERT_TRUE(gone.waitForFinished());
    sandbox.write(kBoard + QStringLiteral(".lock"), QByteArray::number(goneId) + "\ntrue\n" + host + "\n");
    run = sandbox.run({ "insert-shot", kBoard, "--after", "1" });
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.err.startsWith(QStringLiteral("note: took over the stale lock"))) << run.err.toStdString();
    EXPECT_FALSE(QFileInfo::exists(file + QStringLiteral(".lock")));
}

// Two edits started together: one waits its turn or is refused, none is lost.
TEST(GuardedSaves, RacingEditsLoseNothing)
{
    ToolSandbox sandbox;
    writeBoard(sandbox);
    int expected = shotCount(sandbox);
    for (int round = 0; round < 20; ++round) {
        QProcess editors[2];
        for (QProcess& editor : editors) {
            editor.setWorkingDirectory(sandbox.path(QString()));
            editor.start(QStringLiteral(KROLLE_TOOL_PATH), { "insert-shot", kBoard, "--after", "1" });
        }
        for (QProcess& editor : editors) {
            ASSERT_TRUE(editor.waitForFinished());
            EXPECT_TRUE(editor.exitCode() == 0 || editor.exitCode() == 2) << editor.readAllStandardError().toStdString();
            expected += editor.exitCode() == 0 ? 1 : 0;
        }
        ASSERT_EQ(shotCount(sandbox), expected) << "round " << round;
    }
}

} // namespace

// Hostile files, refused saves, locks, racing edits: one sentence, a status, no edit lost.
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
    const QJsonObject outline
        = QJsonDocument::fromJson(sandbox.run({ "outline", kBoard, "--json" }).out.toUtf8()).object();
    return outline.value(QStringLiteral("counts")).toObject().value(QStringLiteral("shots")).toInt(-1);
}

// A frame moved by one (hole, overlap) at the start, middle and end of the top scene
// and of shot 2's panels: refused with its place, or loaded and walked to the end.
TEST(HostileTimelines, EndWithAnAnswerOrARefusalNamingThePlace)
{
    const std::tuple<const char*, const char*, bool> cases[] = {
        // from, to, refused
        { "first=\"1\" last=\"61\"", "first=\"2\" last=\"61\"", true },
        { "first=\"62\" last=\"112\"", "first=\"63\" last=\"112\"", true },
        { "first=\"113\" last=\"166\"", "first=\"113\" last=\"165\"", false },
        { "first=\"1\" last=\"61\"", "first=\"0\" last=\"61\"", true },
        { "first=\"62\" last=\"112\"", "first=\"61\" last=\"112\"", true },
        { "first=\"113\" last=\"166\"", "first=\"113\" last=\"167\"", false },
        { "first=\"1\" last=\"20\"", "first=\"2\" last=\"20\"", true },
        { "first=\"21\" last=\"32\"", "first=\"22\" last=\"32\"", true },
        { "first=\"33\" last=\"51\"", "first=\"33\" last=\"50\"", true },
        { "first=\"1\" last=\"20\"", "first=\"0\" last=\"20\"", true },
        { "first=\"21\" last=\"32\"", "first=\"20\" last=\"32\"", true },
        { "first=\"33\" last=\"51\"", "first=\"33\" last=\"52\"", false },
    };
    ToolSandbox sandbox;
    writeBoard(sandbox);
    const QByteArray board = sandbox.read(kBoard);
    for (const auto& [from, to, refused] : cases) {
        ASSERT_EQ(board.count(from), 1) << from;
        sandbox.write(QStringLiteral("edited.xml"), QByteArray(board).replace(from, to));
        for (const char* command : { "outline", "check" }) {
            const ToolRun run = sandbox.run({ command, "edited.xml" });
            EXPECT_EQ(run.exitCode, refused ? 2 : 0) << command << " " << to << ": " << run.err.toStdString();
            EXPECT_EQ(run.err.contains(QStringLiteral(": line ")), refused) << run.err.toStdString();
        }
    }
}

// Each hostile file: status 2 and one sentence, at once.
TEST(HostileFiles, AreRefusedWithOneSentence)
{
    const QByteArray root = "<engineProject version=\"1\" nextId=\"9\">";
    const QByteArray laughs = "<!DOCTYPE p [<!ENTITY a \"haha\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]>";
    const std::pair<QByteArray, const char*> cases[] = {
        { laughs + root + "<scene id=\"1\" name=\"&b;\"/></engineProject>", "document type declarations" },
        { "<!DOCTYPE p [<!ENTITY x SYSTEM \"/etc/passwd\">]>" + root + "&x;", "document type declarations" },
        { root + "<scene name=\"" + QByteArray(17 * 1024 * 1024, 'x') + "\"/>", "holds more than" },
        { root + QByteArray(100000 * 3, 'a').replace("aaa", "<a>"), "nest deeper than 256" },
        { root + "<scene id=\"1\"><sequence><block first=\"9223372036854775808\"/>",
            "not a valid value for \"first\"" },
        { root + "\n<scene id=\"1\" na" + QByteArray(1, '\0') + "me=\"x\"/></engineProject>",
            "line 2, column 17: a NUL byte" },
    };
    ToolSandbox sandbox;
    for (const auto& [content, message] : cases) {
        sandbox.write(kBoard, content);
        const ToolRun run = sandbox.run({ "outline", kBoard });
        EXPECT_TRUE(run.exitCode == 2 && run.err.contains(message) && run.err.count('\n') == 1)
            << run.err.toStdString();
    }
    ASSERT_EQ(::mkfifo(QFile::encodeName(sandbox.path(QStringLiteral("pipe.xml"))).constData(), 0600), 0);
    EXPECT_TRUE(sandbox.run({ "outline", "pipe.xml" }).err.contains("pipe.xml: is not a regular file"));
}

// A read-only file and a held lock are left alone; a lock of a gone process is taken over.
TEST(GuardedSaves, RefuseWhatWouldLoseWork)
{
    ToolSandbox sandbox;
    writeBoard(sandbox);
    const QString file = sandbox.path(kBoard);
    const QByteArray before = sandbox.read(kBoard);
    const QStringList edit { "insert-shot", kBoard, "--after", "1" };
    ::chmod(QFile::encodeName(file).constData(), 0444);
    EXPECT_EQ(sandbox.run(edit).err,
        "krolle insert-shot: cannot edit board.xml: it is read-only; it is left as it is\n");
    ::chmod(QFile::encodeName(file).constData(), 0644);

    // Locks of this test's own process (alive) and of one that has ended.
    QProcess gone;
    gone.start(QStringLiteral("true"), QStringList());
    ASSERT_TRUE(gone.waitForStarted());
    const qint64 goneId = gone.processId();
    ASSERT_TRUE(gone.waitForFinished());
    const QString self = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget().section('/', -1);
    for (const auto& [pid, name] :
        { std::make_pair(qint64(::getpid()), self), std::make_pair(goneId, QString("true")) }) {
        sandbox.write(kBoard + ".lock",
            QStringLiteral("%1\n%2\n%3\n").arg(pid).arg(name, QSysInfo::machineHostName()).toUtf8());
        const ToolRun run = sandbox.run(edit);
        EXPECT_EQ(run.exitCode, pid == goneId ? 0 : 2) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(pid == goneId
                ? QStringLiteral("stale lock board.xml.lock of process %1").arg(pid)
                : QStringLiteral("is being edited by process %1").arg(pid)));
        EXPECT_EQ(sandbox.read(kBoard) == before, pid != goneId);
    }
    EXPECT_FALSE(QFileInfo::exists(file + ".lock"));
}

// Two edits started together, 20 times: each that succeeds adds its shot.
TEST(GuardedSaves, RacingEditsLoseNothing)
{
    ToolSandbox sandbox;
    writeBoard(sandbox);
    int expected = shotCount(sandbox);
    for (int round = 0; round < 20; ++round) {
        QProcess editors[2];
        for (QProcess& editor : editors) {
            editor.setWorkingDirectory(sandbox.path(QString()));
            editor.start(KROLLE_TOOL_PATH, { "insert-shot", kBoard, "--after", "1" });
        }
        for (QProcess& editor : editors) {
            ASSERT_TRUE(editor.waitForFinished());
            expected += editor.exitCode() == 0 ? 1 : 0;
        }
        ASSERT_EQ(shotCount(sandbox), expected) << "round " << round;
    }
}

} // namespace

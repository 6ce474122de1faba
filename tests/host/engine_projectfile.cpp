// The project file: save and reload compare equal, refused documents name their
// place and give no project, and a failed save leaves the previous file alone.
#include "host/context/TUDbSceneData.h"
#include "host/engine/HostEngine.h"
#include "host/persistence/PIO_MetadataGeneric.h"
#include "host/persistence/PIO_Metadatas.h"
#include "support/EngineFixtures.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

Math::Matrix4x4 translation(double x, double y, double z)
{
    Math::Matrix4x4 matrix;
    matrix.translate(x, y, z);
    return matrix;
}

// A project that uses every part of the file: transitions of all placements and
// styles, warps, a block of another kind, cameras, planes, records and nodes.
HostStoryboard richBoard()
{
    HostStoryboard board = engineBoard(QStringLiteral("T1 S[3,4] T2:wipe,90,r S[5]~2:4=7 S[2,2,2] T1:slide"));
    SC_Project* project = board.project.get();
    SC_ProjectCommon* common = project->projectCommon();
    common->dbSceneData()->setSceneName(QStringLiteral("Storyboard \"é\" <1>"));
    common->dbSceneData()->setProjectDir(QStringLiteral("/projects/sb"));
    common->setDefaultCameraMatrix(translation(0, 0, 12.5));
    auto* note = new PIO_MetadataString(QStringLiteral("note"));
    note->setValue(QStringLiteral("line one\nline two & <three>"));
    project->metadatas()->add(note);

    TUScene* symbol = HostAuthoring::symbolOf(project, board.shots[1]);
    symbol->setName(QStringLiteral("symbol"));
    symbol->sequence()->setName(QStringLiteral("panels"));
    symbol->sceneCommon()->setCameraPlanes(0.25, 512.0);
    symbol->setEmbeddedCameraKey(1.0, translation(1, 2, 3));
    symbol->setEmbeddedCameraKey(3.5, translation(0.1, 0.2, 1.0 / 3.0));
    auto* flag = new PIO_MetadataBool(QStringLiteral("flag"));
    flag->setValue(true);
    symbol->metadatas()->add(flag);

    auto* panelScene = static_cast<TUScene*>(common->sceneManager()->find(board.panels[0][0]));
    MO_Node* peg = HostNodeAuthoring::addPeg(panelScene->getRootGroup(), QStringLiteral("Peg"));
    MO_ElementModule* element = HostNodeAuthoring::addElement(
        panelScene->getRootGroup(), QStringLiteral("Ink"), CA_DrawingKind::Kvg, peg);
    int const drawing = HostNodeAuthoring::addDrawing(element, QStringLiteral("/projects/sb/ink-1.kvg"));
    HostNodeAuthoring::setExposure(element, 1, 3, drawing);

    // A block of another kind and one without sequence, in a scene of their own.
    TUScene* extra = project->createScene(QStringLiteral("extra"));
    extra->sequence()->insertBlock(0, std::make_unique<AT_FrameBlock>(1, 4, std::make_unique<TUSeq>()));
    extra->sequence()->insertBlock(1, std::make_unique<AT_FrameBlock>(5, 6, nullptr));
    extra->sequence()->insertBlock(2,
        std::make_unique<AT_FrameBlock>(
            7, 9, std::make_unique<AT_AbstractSceneSeq>(project->createScene()->id)));
    return board;
}

class EngineProjectFile : public ::testing::Test
{
protected:
    QTemporaryDir dir;
    QString path(QString const& name) const { return dir.filePath(name); }
};

TEST_F(EngineProjectFile, saveAndLoadGiveTheSameProject)
{
    HostStoryboard board = richBoard();
    QString error;
    ASSERT_TRUE(HostProjectFile::save(board.project.get(), path("a.xml"), &error)) << qPrintable(error);
    TUSceneChangeManager manager;
    EngineChangeRecorder recorder(manager);
    UT_SharedPtr<SC_Project> loaded = HostProjectFile::load(path("a.xml"), &error, &manager);
    ASSERT_TRUE(loaded) << qPrintable(error);
    EXPECT_EQ(engineDump(loaded.get()), engineDump(board.project.get()));
    EXPECT_EQ(
        HostStoryboardBuilder::describe(loaded.get()), HostStoryboardBuilder::describe(board.project.get()));
    EXPECT_EQ(loaded->projectCommon()->changeManager(), &manager);
    manager.notify();
    EXPECT_TRUE(recorder.lines.isEmpty()) << "loading is no edit";

    // Saving the loaded project again gives the same document.
    EXPECT_EQ(HostProjectFile::toXml(loaded.get()), HostProjectFile::toXml(board.project.get()));
}

TEST_F(EngineProjectFile, loadedProjectGoesOnWithFreshIds)
{
    HostStoryboard board = engineBoard(QStringLiteral("S[2] T1 S[3]"));
    QString error;
    UT_SharedPtr<SC_Project> loaded
        = HostProjectFile::fromXml(HostProjectFile::toXml(board.project.get()), &error);
    ASSERT_TRUE(loaded) << qPrintable(error);
    SC_Id const added = HostAuthoring::insertShot(loaded.get(), 2, { 4 });
    ASSERT_FALSE(added.isNull());
    for (SC_Id const& id :
        { board.shots[0], board.shots[1], board.transitions[0], board.panels[0][0], board.panels[1][0] })
        EXPECT_NE(added, id);
    EXPECT_EQ(HostAuthoring::shotIndex(loaded.get(), board.shots[1]), 1);
}

#define ROOT "<engineProject version=\"1\" nextId=\"9\">"
#define END "</engineProject>"
// The top scene's sequence, opened and closed, and blocks of frames 1 to 5 or 1 to 1.
#define SEQ "<scene id=\"1\"><sequence>"
#define QES "</sequence></scene>"
#define B5(attributes) "<block first=\"1\" last=\"5\" " attributes "/>"
#define T1(attributes)                                                                                       \
    "<block first=\"1\" last=\"1\" kind=\"transition\" " attributes " angle=\"0\" type=\"0\"/>"
#define SCENES_OK SEQ B5("kind=\"warp\" scene=\"2\" start=\"1\" end=\"5\"") QES "<scene id=\"2\"/>"

TEST_F(EngineProjectFile, refusedDocumentGivesNoProjectAndNamesThePlace)
{
    struct
    {
        char const* xml;
        char const* message; // a part of the error
    } const cases[] = { { "", "" }, { "this is no xml", "" },
        { ROOT SCENES_OK, "" }, // cut short, as a truncated file is
        { "<project/>", "no engine project" },
        { "<engineProject version=\"2\" nextId=\"9\"/>", "version \"2\"" },
        { "<engineProject version=\"1\" nextId=\"9\"/>", "no scene" },
        { "<engineProject version=\"1\">" SCENES_OK END, "\"nextId\"" },
        { "<engineProject version=\"1\" nextId=\"2\">" SCENES_OK END, "\"nextId\" 2" },
        { ROOT "<shot/>" END, "unexpected element <shot>" },
        { ROOT "<scene id=\"1\"/><scene id=\"1\"/>" END, "scene id 1 is given twice" },
        { ROOT "<scene id=\"0\"/>" END, "is 0" },
        { ROOT SEQ "<block first=\"x\" last=\"5\" kind=\"other\"/>" QES END,
            "\"x\" is not a valid value for \"first\"" },
        { ROOT SEQ B5("kind=\"sound\"") QES END, "unknown kind of block \"sound\"" },
        { ROOT SEQ B5("kind=\"warp\" scene=\"7\" start=\"1\" end=\"5\"") QES END,
            "line 1, column 129: the block refers to scene 7, which does not exist" },
        { ROOT SCENES_OK "<scene id=\"3\"><sequence>" B5("kind=\"scene\" scene=\"1\"") QES END,
            "shows scene 1" },
        { ROOT SCENES_OK "<scene id=\"3\"><sequence>" B5("kind=\"scene\" scene=\"2\"") QES END,
            "scene 2 is shown by two blocks" },
        { ROOT "<scene id=\"1\"/><scene id=\"2\"><sequence>" B5("kind=\"scene\" scene=\"3\"") QES
            "<scene id=\"3\"><sequence>" B5("kind=\"scene\" scene=\"2\"") QES END,
            "shows itself" },
        { ROOT SEQ B5(
              "kind=\"scene\" scene=\"2\"") "<block first=\"4\" last=\"8\" kind=\"scene\" scene=\"3\"/>" QES
                                            "<scene id=\"2\"/><scene id=\"3\"/>" END,
            "sequence of scene 1: block 1: overlaps the block before it" },
        { ROOT SEQ T1(
              "id=\"5\" reverse=\"false\"") "<block first=\"3\" last=\"3\" kind=\"transition\" id=\"5\" "
                                            "type=\"0\" angle=\"0\" reverse=\"false\"/>" QES END,
            "transition id 5 is already used" },
        { ROOT SEQ T1("id=\"1\" reverse=\"false\"") QES END, "transition id 1 is already used" },
        { ROOT SEQ T1("id=\"4\" reverse=\"yes\"") QES END, "reverse flag" },
        { ROOT SEQ B5("kind=\"warp\" scene=\"2\" start=\"5\" end=\"1\"") QES "<scene id=\"2\"/>" END,
            "ends (1) before it starts (5)" },
        { ROOT "<defaultCamera matrix=\"1 0 0\"/>" END, "16 numbers" },
        { ROOT "<scene id=\"1\"><sequence/><sequence/></scene>" END, "<sequence> is given twice" },
        { ROOT "<scene id=\"1\"/>" END "<more/>", "" },
        { "<!DOCTYPE p [<!ENTITY x \"y\">]>" ROOT "<scene id=\"1\"/><metadatas>&x;</metadatas>" END, "" } };
    for (auto const& c : cases) {
        QString error;
        EXPECT_FALSE(HostProjectFile::fromXml(QByteArray(c.xml), &error)) << c.xml;
        EXPECT_TRUE(error.contains(QStringLiteral("line ")) && error.contains(QString::fromUtf8(c.message)))
            << c.xml << ": " << qPrintable(error);
    }
}

// Chains of scenes showing scenes: 16 load, longer ones are refused, however the file
// orders them (top down, or the top and then bottom up, which links the chain last).
TEST_F(EngineProjectFile, sceneChainsLongerThanSixteenAreRefused)
{
    auto const chain = [](int length, bool bottomUp) {
        auto const scene = [length](int id) {
            QByteArray element = "<scene id=\"" + QByteArray::number(id) + "\">";
            if (id < length)
                element += "<sequence><block first=\"1\" last=\"1\" kind=\"scene\" scene=\""
                    + QByteArray::number(id + 1) + "\"/></sequence>";
            return element + "</scene>";
        };
        QByteArray document = "<engineProject version=\"1\" nextId=\"100000\">" + scene(1);
        for (int i = 2; i <= length; ++i)
            document += scene(bottomUp ? length + 2 - i : i);
        return document + END;
    };
    for (auto const& [length, loads] :
        { std::pair(16, true), std::pair(17, false), std::pair(1000, false) }) {
        for (bool bottomUp : { false, true }) {
            QString error;
            EXPECT_EQ(bool(HostProjectFile::fromXml(chain(length, bottomUp), &error)), loads)
                << length << (bottomUp ? " bottom up" : " top down");
            EXPECT_EQ(error.contains(QStringLiteral("shown through more than 16 scenes")), !loads)
                << qPrintable(error);
        }
    }
}

TEST_F(EngineProjectFile, failedSaveLeavesThePreviousFileIntactAndNamesThePath)
{
    HostStoryboard small = engineBoard(QStringLiteral("S[1]"));
    QString const target = path("kept.xml");
    ASSERT_TRUE(HostProjectFile::save(small.project.get(), target));
    QFile original(target);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    QByteArray const before = original.readAll();
    original.close();

    // A project far larger than what the process may write: the write fails midway.
    std::string big(" ", 1);
    for (int i = 0; i < 300; ++i)
        big += "S[1,1,1,1,1] ";
    HostStoryboard large = engineBoard(QString::fromStdString(big));
    struct rlimit saved;
    getrlimit(RLIMIT_FSIZE, &saved);
    auto const previousHandler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit limited = saved;
    limited.rlim_cur = rlim_t(before.size() + 1024);
    setrlimit(RLIMIT_FSIZE, &limited);
    QString error;
    bool const saved_ok = HostProjectFile::save(large.project.get(), target, &error);
    setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, previousHandler);

    EXPECT_TRUE(!saved_ok && error.startsWith(target)) << qPrintable(error);

    // A name XML cannot carry would be dropped or break the file: nothing is written.
    for (QString const& name : { QStringLiteral("bell\x07"), QStringLiteral("half") + QChar(0xD800) }) {
        HostStoryboard odd = engineBoard(QStringLiteral("S[1]"));
        TUScene const* scene = odd.project->createScene(name);
        EXPECT_FALSE(HostProjectFile::save(odd.project.get(), target, &error));
        EXPECT_TRUE(error.contains(QStringLiteral("scene %1 holds a character").arg(scene->id.value()))
            && error.endsWith(QStringLiteral("as it was")))
            << qPrintable(error);
    }
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    EXPECT_EQ(original.readAll(), before);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList { QStringLiteral("kept.xml") })
        << "no temporary file is left";

    // Unreachable places are reported with their path.
    QString const nowhere = path("missing/dir/p.xml");
    EXPECT_TRUE(!HostProjectFile::save(small.project.get(), nowhere, &error) && error.startsWith(nowhere))
        << qPrintable(error);
    EXPECT_TRUE(!HostProjectFile::load(nowhere, &error) && error.startsWith(nowhere)) << qPrintable(error);
    EXPECT_FALSE(HostProjectFile::save(nullptr, path("x.xml"), &error));
}

// A save given the load's fingerprint replaces the file only while it is as loaded;
// the saved file keeps its permission bits.
TEST_F(EngineProjectFile, saveRefusesAFileChangedSinceItsLoadAndKeepsPermissions)
{
    QString const target = path("p.xml");
    ASSERT_TRUE(HostProjectFile::save(engineBoard(QStringLiteral("S[2] S[3]")).project.get(), target));
    ::chmod(QFile::encodeName(target).constData(), 0640);
    HostFileFingerprint loaded;
    QString error;
    UT_SharedPtr<SC_Project> project = HostProjectFile::load(target, &error, nullptr, &loaded);
    ASSERT_TRUE(project && HostProjectFile::save(project.get(), target, &error, &loaded))
        << qPrintable(error);
    struct stat status = {};
    EXPECT_TRUE(
        ::stat(QFile::encodeName(target).constData(), &status) == 0 && (status.st_mode & 0777) == 0640);

    HostFileFingerprint const current = HostFileFingerprint::ofFile(target);
    QFile other(target);
    ASSERT_TRUE(other.open(QIODevice::Append) && other.write("<!-- another program -->\n") > 0);
    other.close();
    EXPECT_FALSE(HostProjectFile::save(project.get(), target, &error, &current));
    EXPECT_TRUE(error.endsWith(QStringLiteral("changed on disk since it was loaded; it is left as it is")));
}

} // namespace

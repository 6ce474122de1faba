// Timeline edits of the engine and the compact builder: what each edit makes of the
// timeline, what it posts, and what it refuses without touching anything.
#include "host/engine/HostEngine.h"
#include "support/EngineFixtures.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

SC_Id shot(HostStoryboard const& board, size_t i)
{
    return board.shots.at(i);
}

SC_Id panel(HostStoryboard const& board, size_t s, size_t i)
{
    return board.panels.at(s).at(i);
}

bool ok(SC_Id const& id)
{
    return !id.isNull();
}

bool ok(bool done)
{
    return done;
}

using namespace HostAuthoring;

// An edit of the table's project; p is the project, e the error.
#define EDIT(call)                                                                                           \
    [](HostStoryboard& b, QString* e) {                                                                      \
        SC_Project* p = b.project.get();                                                                     \
        return ok(call);                                                                                     \
    }

TEST(EngineAuthoring, timelineEditGivesTheExpectedTimelineOrChangesNothing)
{
    struct
    {
        char const* name;
        char const* before;
        std::function<bool(HostStoryboard&, QString*)> edit;
        char const* after; // null: the edit is refused and nothing changes
    } const cases[] = {
        { "insert shot first", "S[4] S[5]", EDIT(insertShot(p, 0, { 2, 3 }, e)), "S[2,3] S[4] S[5]" },
        { "insert shot between", "S[4] S[5]", EDIT(insertShot(p, 1, { 1 }, e)), "S[4] S[1] S[5]" },
        { "append shot after a transition", "S[4] T2 S[5]", EDIT(insertShot(p, 2, { 3 }, e)),
            "S[4] T2 S[5] S[3]" },
        { "insert shot at a transition", "S[4] T2 S[5]", EDIT(insertShot(p, 1, { 3 }, e)), nullptr },
        { "insert shot past the end", "S[4]", EDIT(insertShot(p, 2, { 3 }, e)), nullptr },
        { "insert shot without panel", "S[4]", EDIT(insertShot(p, 0, {}, e)), nullptr },
        { "remove shot with its transitions", "S[4] T2 S[5] T1 S[3]", EDIT(removeShot(p, shot(b, 1), e)),
            "S[4] S[3]" },
        { "remove unknown shot", "S[4]", EDIT(removeShot(p, SC_Id(999), e)), nullptr },
        { "remove a panel as a shot", "S[4]", EDIT(removeShot(p, panel(b, 0, 0), e)), nullptr },
        { "move shot forward", "S[1] S[2] S[3] S[4]", EDIT(moveShot(p, shot(b, 0), 2, e)),
            "S[2] S[3] S[1] S[4]" },
        { "move shot back", "S[1] S[2] S[3] S[4]", EDIT(moveShot(p, shot(b, 3), 0, e)),
            "S[4] S[1] S[2] S[3]" },
        { "move shot drops its transitions", "S[3] T1 S[4] S[5]", EDIT(moveShot(p, shot(b, 1), 2, e)),
            "S[3] S[5] S[4]" },
        { "move shot onto a transition", "S[3] S[4] T1 S[5]", EDIT(moveShot(p, shot(b, 0), 1, e)), nullptr },
        { "resize following shot resizes its last panel", "S[3,4] S[2]",
            EDIT(resizeShot(p, shot(b, 0), 10, e)), "S[3,7] S[2]" },
        { "shrink shot below its last panel", "S[3,4] S[2]", EDIT(resizeShot(p, shot(b, 0), 3, e)), nullptr },
        { "shrink shot under its transitions", "S[3] T2 S[5] T2 S[3]", EDIT(resizeShot(p, shot(b, 1), 4, e)),
            nullptr },
        { "resize warped shot keeps its panels", "S[5,5]~2:10 S[2]", EDIT(resizeShot(p, shot(b, 0), 20, e)),
            "S[5,5]~2:10=20 S[2]" },
        { "set a warp", "S[5,5] S[2]", EDIT(setTimeWarp(p, shot(b, 0), 3, 8, e)), "S[5,5]~3:8 S[2]" },
        { "warp ending before it starts", "S[5]", EDIT(setTimeWarp(p, shot(b, 0), 4, 3, e)), nullptr },
        { "insert panel grows a following shot", "S[2,3] T1 S[4]", EDIT(insertPanel(p, shot(b, 0), 1, 5, e)),
            "S[2,5,3] T1 S[4]" },
        { "insert panel in a warped shot", "S[2,3]~2:5", EDIT(insertPanel(p, shot(b, 0), 2, 5, e)),
            "S[2,3,5]~2:5=5" },
        { "remove panel", "S[2,3,4] S[1]", EDIT(removePanel(p, panel(b, 0, 1), e)), "S[2,4] S[1]" },
        { "remove last panel of a following shot", "S[2] S[1]", EDIT(removePanel(p, panel(b, 0, 0), e)),
            nullptr },
        { "remove panel under a transition's need", "S[2,2] T3 S[5]", EDIT(removePanel(p, panel(b, 0, 0), e)),
            nullptr },
        { "resize panel", "S[2,3] S[1]", EDIT(resizePanel(p, panel(b, 0, 0), 6, e)), "S[6,3] S[1]" },
        { "resize panel to nothing", "S[2,3]", EDIT(resizePanel(p, panel(b, 0, 0), 0, e)), nullptr },
        { "remove a panel a warp shows", "S[5,5]~2:10 S[2]", EDIT(removePanel(p, panel(b, 0, 1), e)),
            nullptr },
        { "remove a panel past the warp", "S[5,5]~2:4 S[2]", EDIT(removePanel(p, panel(b, 0, 1), e)),
            "S[5]~2:4=10 S[2]" },
        { "move a panel a warp shows away", "S[5,5]~2:10 S[2]",
            EDIT(movePanel(p, panel(b, 0, 1), shot(b, 1), 0, e)), nullptr },
        { "shrink a panel a warp shows", "S[5,5]~2:10", EDIT(resizePanel(p, panel(b, 0, 1), 2, e)), nullptr },
        { "move panel within its shot", "S[1,2,3]", EDIT(movePanel(p, panel(b, 0, 0), shot(b, 0), 2, e)),
            "S[2,3,1]" },
        { "move panel to another shot", "S[1,2] S[3]", EDIT(movePanel(p, panel(b, 0, 1), shot(b, 1), 0, e)),
            "S[1] S[2,3]" },
        { "move the only panel away", "S[1] S[3]", EDIT(movePanel(p, panel(b, 0, 0), shot(b, 1), 0, e)),
            nullptr },
        { "insert inner transition", "S[4] S[5]", EDIT(insertTransition(p, 1, 3, 0, 0, false, e)),
            "S[4] T3 S[5]" },
        { "insert transitions at both ends", "S[4]",
            EDIT(ok(insertTransition(p, 0, 1, 0, 0, false, e))
                && ok(insertTransition(p, 1, 2, AT_TransitionSeq::eWipe, 45, true, e))),
            "T1 S[4] T2:wipe,45,r" },
        { "transition too long for its shots", "S[4] S[5]", EDIT(insertTransition(p, 1, 4, 0, 0, false, e)),
            nullptr },
        { "transition on a busy junction", "S[4] T1 S[5]", EDIT(insertTransition(p, 1, 1, 0, 0, false, e)),
            nullptr },
        { "transition on an empty timeline", "", EDIT(insertTransition(p, 0, 1, 0, 0, false, e)), nullptr },
        { "remove transition", "S[4] T3 S[5]", EDIT(removeTransition(p, b.transitions.at(0), e)),
            "S[4] S[5]" },
        { "resize transition", "S[4] T3 S[5]", EDIT(resizeTransition(p, b.transitions.at(0), 1, e)),
            "S[4] T1 S[5]" },
        { "grow transition past its room", "S[4] T3 S[5]",
            EDIT(resizeTransition(p, b.transitions.at(0), 4, e)), nullptr },
        { "move transition", "S[4] T3 S[5] S[6]", EDIT(moveTransition(p, b.transitions.at(0), 2, e)),
            "S[4] S[5] T3 S[6]" },
        { "move transition beside itself", "S[4] S[5] T3 S[6]",
            EDIT(moveTransition(p, b.transitions.at(0), 3, e)), "S[4] S[5] S[6] T3" },
        { "set transition style", "S[4] T3 S[5]",
            EDIT(setTransitionStyle(p, b.transitions.at(0), AT_TransitionSeq::eSlide, 0, true, e)),
            "S[4] T3:slide,0,r S[5]" }
    };
    for (auto const& c : cases) {
        TUSceneChangeManager manager;
        HostStoryboard board = engineBoard(QString::fromLatin1(c.before), &manager);
        ASSERT_TRUE(board.isValid());
        QString const dumpBefore = engineDump(board.project.get());
        EngineChangeRecorder recorder(manager);
        QString error;
        bool const done = c.edit(board, &error);
        manager.notify();
        QString why;
        EXPECT_TRUE(board.project->topScene()->sequence()->isConsistent(&why))
            << c.name << ": " << qPrintable(why);
        EXPECT_EQ(done, c.after != nullptr) << c.name << ": " << qPrintable(error);
        if (!c.after) {
            EXPECT_FALSE(error.isEmpty()) << c.name;
            EXPECT_TRUE(recorder.lines.isEmpty()) << c.name << ": a refused edit posts nothing";
            EXPECT_EQ(engineDump(board.project.get()), dumpBefore) << c.name;
            continue;
        }
        EXPECT_EQ(HostStoryboardBuilder::describe(board.project.get()), QString::fromLatin1(c.after))
            << c.name;
        if (qstrcmp(c.after, c.before) != 0) {
            EXPECT_TRUE(recorder.lines.contains(QStringLiteral("sceneChanged"))) << c.name;
            EXPECT_FALSE(recorder.lastChanged.empty()) << c.name << ": the sequences touched are posted";
        }
    }
}

TEST(EngineAuthoring, idsStayTrueAcrossEdits)
{
    HostStoryboard board = engineBoard(QStringLiteral("S1[2] T1 S2[3] Sx[4]"));
    SC_Project* project = board.project.get();
    EXPECT_EQ(board.shotsByLabel.at(QStringLiteral("x")), board.shots[2]);
    EXPECT_EQ(board.shotsByLabel.at(QStringLiteral("1")), board.shots[0]);
    TUSceneChangeManager* manager = project->projectCommon()->changeManager();
    ASSERT_NE(manager, nullptr) << "a project made without a manager has its own";
    EXPECT_FALSE(manager->hasPendingChanges()) << "building posts nothing";
    SC_Id const inserted = HostAuthoring::insertShot(project, 0, { 5 });
    EXPECT_TRUE(manager->hasPendingChanges());
    ASSERT_FALSE(inserted.isNull());
    EXPECT_EQ(HostAuthoring::shotIndex(project, board.shots[0]), 1);
    EXPECT_EQ(HostAuthoring::shotIndex(project, board.shots[2]), 3);
    EXPECT_EQ(HostAuthoring::transitionAt(project, 2), board.transitions[0]);
    ASSERT_TRUE(HostAuthoring::moveShot(project, board.shots[2], 1));
    EXPECT_EQ(HostAuthoring::shotId(project, 1), board.shots[2]);
    EXPECT_EQ(HostAuthoring::panelId(project, board.shots[2], 0), board.panels[2][0]);
    EXPECT_EQ(HostAuthoring::shotOfPanel(project, board.panels[2][0]), board.shots[2]);
    std::set<SC_Id> ids { inserted, board.transitions[0] };
    for (size_t i = 0; i < board.shots.size(); ++i) {
        ids.insert(board.shots[i]);
        ids.insert(board.panels[i].begin(), board.panels[i].end());
    }
    EXPECT_EQ(ids.size(), 2 + board.shots.size() * 2) << "every object has an id of its own";
    EXPECT_EQ(ids.count(SC_Id()), 0u);

    // Restored objects get the ids they ask for where those are free, and new ones where not.
    SC_Id const restored
        = HostAuthoring::insertShot(project, 0, { 1, 1 }, nullptr, { SC_Id(500), inserted, SC_Id(502) });
    EXPECT_EQ(restored, SC_Id(500));
    EXPECT_EQ(HostAuthoring::panelId(project, restored, 1), SC_Id(502));
    EXPECT_EQ(ids.count(HostAuthoring::panelId(project, restored, 0)), 0u) << "a taken id is not given twice";
    EXPECT_EQ(
        HostAuthoring::insertTransition(project, 1, 1, 0, 0, false, nullptr, board.transitions[0]).value(),
        503u);
}

TEST(EngineAuthoring, insertAndRemoveShotPostTheirScenesAndTheTimeline)
{
    TUSceneChangeManager manager;
    HostStoryboard board = engineBoard(QStringLiteral("S[2]"), &manager);
    SC_Project* project = board.project.get();
    SC_SceneManager* scenes = project->projectCommon()->sceneManager();
    EngineChangeRecorder recorder(manager);
    SC_Id const id = HostAuthoring::insertShot(project, 0, { 3, 4 });
    EXPECT_TRUE(recorder.lines.isEmpty());
    manager.notify();
    EXPECT_EQ(recorder.take(),
        QStringList({ QStringLiteral("sceneChanged"), QStringLiteral("timedValuesAdded 3"),
            QStringLiteral("timedValuesChanged 2") }));
    TUScene* symbol = HostAuthoring::symbolOf(project, id);
    ASSERT_NE(symbol, nullptr);
    EXPECT_EQ(recorder.lastChanged, TUTvSet({ project->topScene()->sequence(), symbol->sequence() }));
    EXPECT_EQ(recorder.lastAdded.count(symbol->sequence()), 1u);

    unsigned const before = project->sceneCount();
    SC_Id const secondPanel = HostAuthoring::panelId(project, id, 1);
    ASSERT_TRUE(HostAuthoring::removeShot(project, id));
    manager.notify();
    EXPECT_EQ(project->sceneCount(), before - 3);
    EXPECT_TRUE(!scenes->find(id) && !scenes->find(secondPanel) && scenes->find(board.shots[0]));
    EXPECT_EQ(recorder.lastRemoved.size(), 3u);
    EXPECT_EQ(project->topScene()->sequence()->blockAt(0)->firstFrame, 1u);
}

TEST(EngineBuilder, buildsAndDescribesBackOrNamesTheBadToken)
{
    struct
    {
        char const* description;
        char const* described; // null: refused, with this text in the error
        char const* error;
    } const cases[] = { { "S1[10,12] T4 S2[8] S3[5,5,5]", "S[10,12] T4 S[8] S[5,5,5]", nullptr },
        { "  S[1]   S[2] ", "S[1] S[2]", nullptr }, { "", "", nullptr },
        { "T2 S[5] T1:wipe,90 S[5] T3:2,0,r", "T2 S[5] T1:wipe,90 S[5] T3:clockwipe,0,r", nullptr },
        { "S[10,10]~5:15=22 S[4]~2.5:3", "S[10,10]~5:15=22 S[4]~2.5:3", nullptr },
        { "S[4] T1:7", "S[4] T1:7", nullptr }, { "S[0]", nullptr, "token 1 \"S[0]\"" },
        { "S[2] Q[3]", nullptr, "token 2 \"Q[3]\"" },
        { "S[2] T1 T1 S[3]", nullptr, "two transitions in a row" },
        { "S[5] T9 S[5]", nullptr, "token 2 \"T9\": a transition of 9 frames" },
        { "Sa[2] Sa[3]", nullptr, "the label is given twice" }, { "S[2]~5:3", nullptr, "token 1" },
        { "S[2] T1:spin S[3]", nullptr, "unknown transition type" } };
    for (auto const& c : cases) {
        QString error;
        HostStoryboard board = HostStoryboardBuilder::build(QString::fromLatin1(c.description), &error);
        ASSERT_EQ(board.isValid(), c.described != nullptr) << c.description << ": " << qPrintable(error);
        if (!c.described) {
            EXPECT_TRUE(error.contains(QString::fromLatin1(c.error)))
                << c.description << ": " << qPrintable(error);
            continue;
        }
        EXPECT_EQ(HostStoryboardBuilder::describe(board.project.get()), QString::fromLatin1(c.described));
        QString why;
        EXPECT_TRUE(board.project->topScene()->sequence()->isConsistent(&why)) << qPrintable(why);
    }
}

} // namespace

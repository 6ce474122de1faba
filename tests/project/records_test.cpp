// The project's own records, the act and sequence names by frame, and the guards.
#include "support/ProjectBoard.h"
#include "support/ScopedPreferences.h"

#include "host/engine/HostNodeAuthoring.h"
#include "metadata/KRC_SceneInfo.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>

using namespace Krolle;

namespace {

int recordsNamed(SC_Project* project, QString const& name)
{
    int count = 0;
    for (PIO_Metadata* record : *project->metadatas())
        count += record->metaName() == name ? 1 : 0;
    return count;
}

struct TextRecord
{
    char const* name;
    std::function<PIO_MetadataString*(KRC_KrolleProject const&)> record;
    std::function<QString(KRC_KrolleProject const&)> value;
};

TEST(ProjectRecords, TextAndStartTimeRecordsAreMadeOnceOnFirstRead)
{
    ProjectBoard board(QStringLiteral("S[2]"));
    TextRecord const records[] = {
        { "projectTitle", &KRC_KrolleProject::titleMeta, &KRC_KrolleProject::title },
        { "projectSubTitle", &KRC_KrolleProject::subTitleMeta, &KRC_KrolleProject::subTitle },
        { "projectEpisode", &KRC_KrolleProject::episodeMeta, &KRC_KrolleProject::episode },
        { "projectCopyright", &KRC_KrolleProject::copyrightMeta, &KRC_KrolleProject::copyright },
    };
    for (TextRecord const& r : records) {
        SCOPED_TRACE(r.name);
        QString const name = QString::fromLatin1(r.name);
        EXPECT_EQ(0, recordsNamed(board.project(), name));
        EXPECT_TRUE(r.value(board.view()).isEmpty());
        PIO_MetadataString* record = r.record(board.view());
        record->setValue(name + QStringLiteral(" value"));
        EXPECT_TRUE(name == record->metaName() && record == r.record(board.view()));
        EXPECT_EQ(std::make_pair(name + QStringLiteral(" value"), 1),
            std::make_pair(r.value(board.view()), recordsNamed(board.project(), name)));
    }
    EXPECT_EQ(0, board->startTime());
    EXPECT_EQ(1, recordsNamed(board.project(), QStringLiteral("projectStartTime")));
}

TEST(ProjectRecords, TheFirstFilmWidthReadFixesTheDefault)
{
    ProjectBoard board(QStringLiteral("S[2]"));
    EXPECT_EQ(1.4173228346456694, board->filmWidth());
    EXPECT_TRUE(board->filmWidthMeta()->isValid());

    ProjectBoard withPreference(QStringLiteral("S[2]"));
    ScopedPreferences preferences;
    preferences->setDoubleValue(QStringLiteral("KR_CAMERA_FILM_WIDTH"), 0.98);
    EXPECT_EQ(0.98, withPreference->filmWidth());
    preferences->setDoubleValue(QStringLiteral("KR_CAMERA_FILM_WIDTH"), 2.5);
    EXPECT_EQ(0.98, withPreference->filmWidth()); // fixed in the project
    EXPECT_EQ(1.4173228346456694, board->filmWidth());
}

TEST(ProjectRecords, AViewWithoutAProjectHasEmptyValuesAndFindsNothing)
{
    KRC_KrolleProject view(nullptr);
    EXPECT_TRUE(!view.topSceneTv() && view.getShotAt(1, KRC_KrolleProject::PreferPrevious).isInvalid()
        && view.first(Krolle::Shot_t::invalid).isInvalid()
        && view.getPanelTransAt(1).isInvalid() && view.name().isNull() && !view.titleMeta()
        && view.title().isNull() && view.startTime() == 0 && !view.sequenceExists());
    EXPECT_EQ(1.4173228346456694, view.filmWidth());
}

TEST(ProjectRecords, TheTopScenesElementIsItsFirstTopLevelOne)
{
    ProjectBoard board("S[3]");
    EXPECT_EQ(nullptr, board->topSceneElemModule());
    TUGroup* root = board->topScene()->getRootGroup();
    HostNodeAuthoring::addPeg(root, "Peg");
    MO_ElementModule* first = HostNodeAuthoring::addElement(root, "Sound", CA_DrawingKind::Bitmap);
    HostNodeAuthoring::addElement(root, "Other", CA_DrawingKind::Bitmap);
    EXPECT_EQ(first, board->topSceneElemModule());
}

TEST(NamesAtFrames, AreTheStoredNamesCustomOrNot)
{
    ProjectBoard board(QStringLiteral("S[2] T1 S[3]"));
    board.nameShot(1, QString(), QStringLiteral("SEQ"), QStringLiteral("ACT"));
    KRC_SceneInfo* info = board.shotAt(0).sceneInfo();
    info->actName().setValue(QStringLiteral("stored")); // not custom
    auto const prev = KRC_KrolleProject::PreferPrevious, next = KRC_KrolleProject::PreferNext;
    // Under the transition (frame 2) each side has its own.
    EXPECT_EQ((QStringList { "stored", "0", "", "stored", "ACT", "SEQ" }),
        (QStringList { board->getActNameAt(1, prev), board.shotAt(0).actName(),
            board->getSequenceNameAt(1, prev), board->getActNameAt(2, prev), board->getActNameAt(2, next),
            board->getSequenceNameAt(4, next) }));
    EXPECT_TRUE(board->getActNameAt(99, next).isNull());
}

TEST(CacheGuards, NestAndPutBackWhatTheyFound)
{
    ProjectBoard board(QStringLiteral("S[2]"));
    KRC_KrolleProject* view = &board.view();
    view->setCacheEnabled(false);
    {
        KRC_KrolleProject::CacheActivator on(view);
        EXPECT_TRUE(view->cacheEnabled());
        {
            KRC_KrolleProject::CacheDesactivator off(view);
            EXPECT_FALSE(view->cacheEnabled());
        }
        EXPECT_TRUE(view->cacheEnabled());
    }
    EXPECT_FALSE(view->cacheEnabled());

    view->setCacheEnabled(true);
    Shot_t const shot = view->getShotAt(1, KRC_KrolleProject::PreferPrevious);
    {
        KRC_KrolleProject::CacheActivator same(view); // no change of state: the caches stay
    }
    EXPECT_TRUE(sharePrivate(shot, view->getShotAt(1, KRC_KrolleProject::PreferPrevious)));
}

TEST(LockHelper, HoldsTheLockForItsLifetime)
{
    ProjectBoard board(QStringLiteral("S[2]"));
    KRC_KrolleProject* view = &board.view();
    EXPECT_FALSE(KRC_KrolleProject::LockHelper::isLocked(view));
    std::atomic<bool> otherGotIn { false };
    std::thread other;
    {
        KRC_KrolleProject::LockHelper lock(view);
        EXPECT_TRUE(KRC_KrolleProject::LockHelper::isLocked(view));
        other = std::thread([&] {
            KRC_KrolleProject::LockHelper waiting(view);
            otherGotIn = true;
        });
        std::this_thread::yield();
        EXPECT_FALSE(otherGotIn);
    }
    other.join();
    EXPECT_TRUE(otherGotIn);
    EXPECT_FALSE(KRC_KrolleProject::LockHelper::isLocked(view));
}

} // namespace

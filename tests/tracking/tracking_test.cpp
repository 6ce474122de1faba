// The tracking manager: each kind of engine edit reaches the open scopes as the panel it
// touched, the record filters, scope and desactivator nesting, and the date queries.
#include "infofields/KRC_InfoFieldList.h"
#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_Tracking.h"
#include "support/ProjectBoard.h"
#include "support/ProjectInvariants.h"
#include "tracking/KRC_TrackingManager.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace HostNodeAuthoring;
using Scope = KRC_TrackingManager::AccumScope;

// Two shots; the first panel holds a drawing column, the second a peg.
class Tracking : public CacheStateTest
{
protected:
    Tracking()
        : CacheStateTest("S[10,12] S[8]")
    {
        TUGroup* root = board.panelAt(0, 0).symbol()->getRootGroup();
        hero = addDrawingElement(root, "Hero", CA_DrawingKind::Kvg, "hero.tvg", 1, 10);
        peg = addPeg(board.panelAt(0, 1).symbol()->getRootGroup(), "Char");
        board.notify();
        tracker().init();
        board.notify(); // what the first delivery posted in turn
        qRegisterMetaType<TUMetadataSet>("TUMetadataSet");
    }

    KRC_TrackingManager& tracker() const { return *board->trackingManager(); }
    void emitRecord(PIO_Metadata* record, int code)
    {
        record->emitChanged(board->changeManager(), code);
    }
    std::vector<SC_Id> ids(Scope const& scope) const
    {
        std::vector<SC_Id> out;
        for (auto const& entry : scope.result())
            out.push_back(entry.first);
        return out;
    }

    MO_ElementModule* hero = nullptr;
    TUPegModule* peg = nullptr;
};

TEST_P(Tracking, EachEditReachesTheScopeAsThePanelItTouched)
{
    const SC_Id first = board.panel(0, 0), second = board.panel(0, 1);
    struct Edit
    {
        const char* what;
        std::function<void()> apply;
        std::vector<SC_Id> expected;
    };
    const Edit edits[] = {
        { "drawing", [&] { ca_celCache->reportDrawingModified(hero->drawingAttr()->key(1.0)); }, { first } },
        { "node attribute", [&] { setLocked(peg, true); }, { second } },
        { "network", [&] { addPeg(board.panelAt(1, 0).symbol()->getRootGroup(), "Cam"); }, { board.panel(1, 0) } },
        { "timed value", [&] { setExposure(hero, 1, 4, 1); }, { first } },
        { "tracking record, code 23", [&] { emitRecord(board.panelAt(0, 1).tracking(), 23); }, { second } },
        { "tracking record, other code", [&] { emitRecord(board.panelAt(0, 1).tracking(), 3); }, {} },
        { "info fields, code 4", [&] { emitRecord(board.panelAt(0, 0).infoFieldList(), 4); }, { first } },
        { "info fields, other code", [&] { emitRecord(board.panelAt(0, 0).infoFieldList(), 3); }, {} },
        { "panel info, code 18", [&] { emitRecord(board.panelAt(0, 0).panelInfo(), 18); }, {} },
        { "panel info, other code", [&] { emitRecord(board.panelAt(0, 0).panelInfo(), 3); }, { first } },
        { "project record", [&] { tracker().setAutoPanelTracking(false); }, {} },
    };
    for (Edit const& edit : edits) {
        Scope scope(&tracker());
        edit.apply();
        board.notify();
        EXPECT_EQ(ids(scope), edit.expected) << edit.what;
        for (auto const& entry : scope.result())
            EXPECT_TRUE(entry.second.first.isValid()) << edit.what;
        EXPECT_TRUE(projectViewIsConsistent(board.view())) << edit.what;
        Scope idle(&tracker());
        KRC_TrackingManager::Desactivator off(&tracker());
        edit.apply();
        board.notify();
        EXPECT_TRUE(idle.result().empty()) << edit.what << " while disabled";
    }
}

TEST_P(Tracking, ScopesAndDesactivatorsNest)
{
    Krolle::Panel_t panel = board.panelAt(0, 0);
    Scope outer(&tracker());
    {
        Scope inner(&tracker());
        tracker().trackPanel(panel);
        EXPECT_EQ(inner.result().size(), 1u);
    }
    QDateTime const firstTime = outer.result().begin()->second.first;
    tracker().trackPanel(panel);
    EXPECT_EQ(outer.result().size(), 1u);
    EXPECT_GE(outer.result().begin()->second.first, firstTime);

    tracker().setEnabled(false);
    {
        KRC_TrackingManager::Desactivator off(&tracker());
        KRC_TrackingManager::Desactivator copy(off);
    }
    EXPECT_FALSE(tracker().enabled());
    tracker().setEnabled(true);
    {
        KRC_TrackingManager::Desactivator off(&tracker());
        KRC_TrackingManager::Desactivator nested(&tracker());
    }
    EXPECT_TRUE(tracker().enabled());
}

TEST_P(Tracking, TheFlagFollowsAutoTrackingOrTheRecordAtTheChange)
{
    QSignalSpy records(board->changeManager(), &TUSceneChangeManager::metadataChanged);
    const std::tuple<bool, bool, bool> cases[] = {
        // auto, record's flag, entry's flag
        { true, false, true },
        { false, false, false },
        { false, true, true },
    };
    Krolle::Panel_t panel = board.panelAt(0, 0);
    for (auto const& [autoTracking, flag, expected] : cases) {
        tracker().setAutoPanelTracking(autoTracking);
        panel.tracking()->setIsTracked(flag);
        Scope scope(&tracker());
        tracker().trackPanel(panel);
        EXPECT_EQ(scope.result().at(panel.id()).second, expected) << autoTracking << flag;
    }
    EXPECT_EQ(records.count(), 3);
}

TEST_P(Tracking, DateQueriesFilterAndIncludeBothEnds)
{
    QDate const day(2026, 3, 10);
    auto mark = [&](size_t shot, size_t index, bool tracked, QDate date) {
        KRC_Tracking* record = board.panelAt(shot, index).tracking();
        record->setIsTracked(tracked);
        record->setTrackingDate(QDateTime(date, QTime(12, 0)));
    };
    mark(0, 0, true, day);
    mark(0, 1, true, day.addDays(5));
    mark(1, 0, false, day.addDays(-5));
    const SC_Id a = board.panel(0, 0), b = board.panel(0, 1), c = board.panel(1, 0);
    struct Query
    {
        QDate from, to;
        int filter;
        std::vector<SC_Id> expected;
    };
    const Query queries[] = {
        { day, day.addDays(5), 0, { a, b } },
        { day.addDays(-5), day, -1, { c } },
        { day.addDays(-9), day.addDays(9), 1, { a, b } },
        { day.addDays(9), day, 0, {} },
    };
    std::vector<SC_Id> out;
    for (Query const& query : queries) {
        tracker().getTrackedPanels(out, query.from, query.to, query.filter);
        EXPECT_EQ(out, query.expected) << query.from.toString().toStdString() << query.filter;
    }
    board.panelAt(0, 1).tracking()->setTrackingDate(QDateTime());
    tracker().getTrackedPanels(out, day.addDays(9), day, 0);
    EXPECT_EQ(out, std::vector<SC_Id> { b });
    EXPECT_EQ(tracker().getTrackedPanelsCount(), 2u);
    tracker().getTrackedPanels(out, false);
    EXPECT_EQ(out, std::vector<SC_Id> { c });

    const std::tuple<QDate, int, QDate> firsts[] = {
        { QDate(2100, 1, 1), 0, day.addDays(-5) },
        { QDate(2100, 1, 1), 1, day },
        { QDate(), 0, QDate() },
    };
    for (auto const& [seed, filter, expected] : firsts) {
        QDate date = seed;
        tracker().getFirstTrackingDate(date, filter);
        EXPECT_EQ(date, expected) << filter;
    }
}

} // namespace

INSTANTIATE_CACHE_STATES(Tracking, Tracking);

// Test helper: an engine storyboard from a one-line description, with a project view
// over it and the session's change manager that the view listens to.
#pragma once

#include "host/engine/HostStoryboardBuilder.h"
#include "project/KRC_KrolleProject.h"
#include "project/KRC_SceneChangeManager.h"
#include "support/QtTestPrinters.h"

#include <QString>

#include <gtest/gtest.h>

#include <memory>
#include <string>

/// Builds the project (failing the current test on a refused description) and opens
/// a view over it. The view goes first, then the project, then the manager.
class ProjectBoard
{
public:
    explicit ProjectBoard(QString const& description);
    ~ProjectBoard();
    ProjectBoard(ProjectBoard const&) = delete;
    ProjectBoard& operator=(ProjectBoard const&) = delete;

    KRC_KrolleProject& view() const { return *m_view; }
    KRC_KrolleProject* operator->() const { return m_view.get(); }
    SC_Project* project() const { return board.project.get(); }
    TUSeqTimedValue* timeline() const;

    SC_Id shot(size_t index) const { return board.shots.at(index); }
    SC_Id panel(size_t shotIndex, size_t index) const { return board.panels.at(shotIndex).at(index); }
    SC_Id transition(size_t index) const { return board.transitions.at(index); }

    /// The handles of the board's objects, found by id in the view.
    Krolle::Shot_t shotAt(size_t index) const { return m_view->getShotByID(shot(index)); }
    Krolle::Panel_t panelAt(size_t shotIndex, size_t index) const
    {
        return m_view->getPanelByID(panel(shotIndex, index));
    }
    Krolle::Trans_t transAt(size_t index) const { return m_view->getTransByID(transition(index)); }

    /// Gives a shot custom names; a null text leaves that name as it is.
    void nameShot(size_t index, QString const& name, QString const& sequence = QString(),
        QString const& act = QString()) const;
    /// Puts the shots in acts and sequences, "act/sequence" for each shot in order
    /// ("A/S1 A/S1 B/S2"), and turns sequences on.
    void group(QString const& groups) const;

    /// Delivers what the engine collected, as a host command does when it ends.
    void notify() { manager.notify(); }

    KRC_SceneChangeManager manager;
    HostStoryboard board;

private:
    std::unique_ptr<KRC_KrolleProject> m_view;
};

/// Whether two handles share one private object: one came from the other's cache.
template <class Handle> bool sharePrivate(Handle const& a, Handle const& b)
{
    using Base = Krolle::SharedPtr<typename Handle::element_type>;
    return static_cast<Base const&>(a) == static_cast<Base const&>(b);
}

/// Base of tests that run twice over one board, with the view's caches on and off, as
/// the test's parameter says. Instantiate with INSTANTIATE_CACHE_STATES.
class CacheStateTest : public testing::TestWithParam<bool>
{
protected:
    explicit CacheStateTest(char const* description)
        : board(QString::fromLatin1(description))
    {
        board->setCacheEnabled(GetParam());
    }

    ProjectBoard board;
};

/// Names the two runs of a CacheStateTest.
inline std::string cacheStateName(testing::TestParamInfo<bool> const& info)
{
    return info.param ? "CacheOn" : "CacheOff";
}

#define INSTANTIATE_CACHE_STATES(prefix, fixture)                                                            \
    INSTANTIATE_TEST_SUITE_P(prefix, fixture, testing::Values(true, false), cacheStateName)

// Which panels changed, and when: the funnel from engine changes to open collection scopes.
#pragma once

#include "host/Host.h"

#include <QDate>
#include <QDateTime>
#include <QObject>

#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

class KRC_KrolleProject;
class KRC_TrackingManagerPrivate;

namespace Krolle {
class Panel_t;
} // namespace Krolle

/// Turns every kind of engine change (drawings, nodes, timed values, records) into the
/// panels it touches and hands them to each open `AccumScope`. It never writes a
/// panel's tracking record: the owner of a scope reads what it gathered and decides.
/// A change seen while no scope is open, or while the manager is disabled, is dropped.
///
/// The project view makes it after its layer manager; `init()` makes the connections.
/// The project's "autoPanelTracking" record is made on construction when missing.
/// Threading: the host's thread only; scopes and desactivators are objects of it.
class KRC_TrackingManager : public QObject
{
    Q_OBJECT

public:
    /// Gathers the panels changed while it lives: by id, the time of the last change and
    /// whether that change marks the panel tracked. Registers itself with the manager.
    class AccumScope
    {
    public:
        using Map = std::map<SC_Id, std::pair<QDateTime, bool>>;

        explicit AccumScope(KRC_TrackingManager* manager);
        virtual ~AccumScope();
        AccumScope(AccumScope const&) = delete;
        AccumScope& operator=(AccumScope const&) = delete;

        Map const& result() const { return map; }
        Map& result() { return map; }

    private:
        friend class KRC_TrackingManager;
        KRC_TrackingManager* manager;
        Map map;
    };

    /// Shuts the funnel while it lives and restores the state it found, so it nests.
    class Desactivator
    {
    public:
        explicit Desactivator(KRC_TrackingManager* manager);
        virtual ~Desactivator();
        Desactivator(Desactivator const&) = default;
        Desactivator& operator=(Desactivator const&) = default;

    private:
        KRC_TrackingManager* manager;
        bool saved = true;
    };

    /// The change code a tracking record is reported with when its flag or date is set:
    /// the only code under which such a change counts as a change of its panel.
    static constexpr int kTrackingSetCode = 23;

    explicit KRC_TrackingManager(KRC_KrolleProject* project);
    ~KRC_TrackingManager() override;
    KRC_TrackingManager(KRC_TrackingManager const&) = delete;
    KRC_TrackingManager& operator=(KRC_TrackingManager const&) = delete;

    /// Connects to the drawing observer and to the project's change manager.
    void init();

    bool enabled() const;
    void setEnabled(bool enabled);
    bool autoPanelTracking() const;
    /// Stores the flag and reports the record's change (code 21) at once.
    void setAutoPanelTracking(bool autoTracking);
    bool isTracked(Krolle::Panel_t const& panel) const;

    /// Hands the panel to every open scope, with the time now.
    void trackPanel(Krolle::Panel_t& panel);
    void trackPanel(SC_Id const& id);
    void trackPanels(std::vector<Krolle::Panel_t> const& panels);
    void trackPanels(std::vector<SC_Id> const& ids);
    void trackPanels(std::set<Krolle::Panel_t> const& panels);
    void trackPanels(std::set<SC_Id> const& ids);

    /// The panels, in timeline order, whose flag equals `tracked`.
    void getTrackedPanels(std::vector<SC_Id>& out, bool tracked) const;
    /// The panels `filter` takes (0 all, < 0 untracked, > 0 tracked) whose date lies in
    /// [from, to], both ends included; a panel without a date is always in range.
    void getTrackedPanels(std::vector<SC_Id>& out, QDate const& from, QDate const& to, int filter) const;
    unsigned int getTrackedPanelsCount() const;
    /// Lowers `date` to the earliest valid date among the panels `filter` takes.
    void getFirstTrackingDate(QDate& date, int filter) const;

protected:
    void addAccumScope(AccumScope* scope);
    void removeAccumScope(AccumScope* scope);

protected slots:
    void onDrawingModified(SC_Id const& id, MO_Node const* node);
    void onNodeChanged(TUNodeSet const& nodes);
    void onTimedValuesUpdated(TUTvSet const& values);
    void onMetadataChanged(TUMetadataSet const& modifications);

private:
    /// The panel with that id, as `getPanelByID` answers, found through its scene.
    Krolle::Panel_t panelById(SC_Id const& id);
    /// The panel showing the scene, through the scene-to-panel index; a scene that
    /// shows none is kept to be asked again if the delivery changes a sequence.
    Krolle::Panel_t attribute(SC_SceneCommon const* scene);
    /// Marks the index stale on a changed sequence, and asks again for the scenes
    /// that showed no panel earlier in the delivery.
    void noteTimelineChanges(TUTvSet const& values);
    /// Whether a record change counts as a change of its panel.
    static bool countsAsPanelChange(PIO_MetaModif const& modification);
    /// Calls `take` with each panel that the three-way `filter` takes.
    template <class Take> void forFilteredPanels(int filter, Take take) const;

    std::unique_ptr<KRC_TrackingManagerPrivate> const d;
};

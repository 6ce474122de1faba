// The storyboard's view of one engine project.
#pragma once

#include "host/Host.h"
#include "project/EngineLinks.h"
#include "project/PanelTrans_t.h"

#include <QObject>
#include <QString>

class KRC_KrolleProjectPrivate;
class KRC_ReferenceToolData;

namespace Krolle {
template <class T> class ObjectCache;
} // namespace Krolle

/// The storyboard's view of an engine project: shots, panels and transitions derived
/// on demand from the top scene's sequence of frame blocks, with caches that fill on
/// lookup and are thrown away whole on every change that the engine reports.
///
/// A lookup never fails: it answers the invalid handle (or `invalidNdx`, an empty
/// list, null) when nothing is found. Under a transition a frame belongs to two shots
/// and the caller picks the side with a ResolutionPriority. Handles are good until the
/// next change; keep ids across changes.
///
/// The view holds one reference on the engine project for its whole life and owns its
/// managers. Threading: the host's thread. Lookups write to the caches even through
/// const operations, so a host that shares the view between threads holds its lock
/// (LockHelper) around every call.
class KRC_KrolleProject : public QObject
{
    Q_OBJECT

public:
    /// Which side of a transition a frame lookup takes. Only 0 and non-zero differ.
    enum ResolutionPriority
    {
        PreferPrevious = 0,
        PreferNext = 1
    };

    /// The answer of every index lookup that finds nothing.
    static unsigned const invalidNdx = 0xFFFFFFFFu;

    explicit KRC_KrolleProject(SC_Project* project);
    ~KRC_KrolleProject() override;
    KRC_KrolleProject(KRC_KrolleProject const&) = delete;
    KRC_KrolleProject& operator=(KRC_KrolleProject const&) = delete;

    // The engine project and what hangs on it.
    SC_Project* project() const;
    SC_ProjectCommon* projectCommon() const;
    TUSceneChangeManager* changeManager() const;
    TUScene* topScene() const;
    TUSeqTimedValue* topSceneTv() const;
    /// The first direct child of the top scene's root group that is an element.
    MO_ElementModule* topSceneElemModule() const;
    /// The project's name, from the scene context.
    QString name() const;
    /// The project's reference tool record, made with the view; null without a project.
    KRC_ReferenceToolData* referenceToolData() const;

    // Caches.
    /// Drops every cache now.
    void invalidate();
    /// Turns the caches on or off; a real change drops them. Disabled, every lookup
    /// asks the engine and builds fresh handles.
    void setCacheEnabled(bool on);
    bool cacheEnabled() const;
    /// Kept for hosts that call it; checks nothing and prints nothing.
    void validateAndDump() const;

    // Lookups by frame. Frames are project frames counted from 1.
    Krolle::Shot_t getShotAt(unsigned frame, ResolutionPriority priority) const;
    Krolle::Panel_t getPanelAt(unsigned frame, ResolutionPriority priority) const;
    /// The panel at a frame counted from 1 inside the shot. A shot whose symbol is
    /// missing or shows nothing at that frame is reported to the user.
    Krolle::Panel_t getPanelIn(Krolle::Shot_t const& shot, unsigned frame) const;
    /// The transition covering a frame; frames under a single block have none.
    Krolle::Trans_t getTransAt(unsigned frame) const;
    /// The transition at a frame if there is one, otherwise the panel (previous side).
    Krolle::PanelTrans_t getPanelTransAt(unsigned frame) const;

protected slots:
    void onSceneChanged();
    void onTimedValuesChanged(const TUTvSet& values);

private:
    Krolle::Shot_t shotOfBlock(AT_FrameBlock const* block) const;
    Krolle::Panel_t makePanel(Krolle::Shot_t const& shot, Krolle::ObjectCache<Krolle::Panel_t>& cache,
        AT_FrameBlock const* block, TUScene* scene) const;
    void reportPanelNotFound(Krolle::Shot_t const& shot, unsigned frame) const;

    KRC_KrolleProjectPrivate* d;
};

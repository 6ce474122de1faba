// The engine's change manager with the events of the storyboard application.
#pragma once

#include "host/engine/HostEngine.h"

#include <QString>

class KRC_SceneChangeManagerPrivate;

/// Change manager of a storyboard session: the engine's own collection of changes,
/// plus six storyboard events.
///
/// The `emit...` operations only post: nothing reaches a listener before `notify()`,
/// which first lets the engine deliver its own events (so that the project view has
/// dropped its caches) and then sends the storyboard events in a fixed order,
/// whatever order they were posted in. An event posted by a listener while `notify()`
/// runs goes out at the following `notify()`. Owned by the session, for its whole
/// life. Threading: the host's thread; signals are delivered directly.
class KRC_SceneChangeManager : public TUSceneChangeManager
{
    Q_OBJECT

public:
    KRC_SceneChangeManager();
    ~KRC_SceneChangeManager() override;

    void emitSceneResized();
    void emitCameraKeyframeSelectionChanged();
    void emitProjectUnloaded();
    void emitExternalPanelsDrop();
    void emitShotCollapsedUncollapsed();
    /// Each call is delivered, in call order, duplicates included.
    void emitExportRangeChanged(QString const& range);

    /// Delivers the engine's events, then the storyboard events. Does nothing while
    /// notification is held back: everything stays pending.
    void notify() override;
    /// Drops the engine's pending changes, a pending resize and the pending export
    /// ranges. The camera selection, unload, drop and collapse events stay pending
    /// and go out at the next notify().
    void clear() override;

signals:
    void sceneResized();
    void exportRangeChanged(QString range);
    void cameraKeyframeSelectionChanged();
    void projectUnloaded();
    void externalPanelsDrop();
    void shotCollapsedUncollapsed();

private:
    KRC_SceneChangeManagerPrivate* d;
};

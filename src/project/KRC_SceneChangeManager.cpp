#include "project/KRC_SceneChangeManager.h"

#include <QStringList>

class KRC_SceneChangeManagerPrivate
{
public:
    bool sceneResizedPending = false;
    bool cameraKeyframeSelectionPending = false;
    bool projectUnloadedPending = false;
    bool externalPanelsDropPending = false;
    bool shotCollapsedPending = false;
    QStringList exportRanges;
};

KRC_SceneChangeManager::KRC_SceneChangeManager()
    : TUSceneChangeManager()
    , d(new KRC_SceneChangeManagerPrivate)
{
}

KRC_SceneChangeManager::~KRC_SceneChangeManager()
{
    delete d;
}

void KRC_SceneChangeManager::emitSceneResized()
{
    d->sceneResizedPending = true;
}

void KRC_SceneChangeManager::emitCameraKeyframeSelectionChanged()
{
    d->cameraKeyframeSelectionPending = true;
}

void KRC_SceneChangeManager::emitProjectUnloaded()
{
    d->projectUnloadedPending = true;
}

void KRC_SceneChangeManager::emitExternalPanelsDrop()
{
    d->externalPanelsDropPending = true;
}

void KRC_SceneChangeManager::emitShotCollapsedUncollapsed()
{
    d->shotCollapsedPending = true;
}

void KRC_SceneChangeManager::emitExportRangeChanged(QString const& range)
{
    d->exportRanges.append(range);
}

namespace {

/// Resets a pending flag and tells whether it was set; the reset comes first so that
/// a listener posting the same event again has it delivered at the next notify().
bool takeFlag(bool& pending)
{
    bool const was = pending;
    pending = false;
    return was;
}

} // namespace

void KRC_SceneChangeManager::notify()
{
    if (!isNotifyEnabled())
        return;
    if (hasPendingChanges())
        markSceneChanged();
    TUSceneChangeManager::notify();

    if (takeFlag(d->sceneResizedPending))
        emit sceneResized();
    QStringList ranges;
    ranges.swap(d->exportRanges);
    for (QString const& range : qAsConst(ranges))
        emit exportRangeChanged(QString(range));
    if (takeFlag(d->cameraKeyframeSelectionPending))
        emit cameraKeyframeSelectionChanged();
    if (takeFlag(d->projectUnloadedPending))
        emit projectUnloaded();
    if (takeFlag(d->externalPanelsDropPending))
        emit externalPanelsDrop();
    if (takeFlag(d->shotCollapsedPending))
        emit shotCollapsedUncollapsed();
}

void KRC_SceneChangeManager::clear()
{
    TUSceneChangeManager::clear();
    d->sceneResizedPending = false;
    d->exportRanges.clear();
}

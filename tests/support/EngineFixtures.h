// Test helpers for the engine stand-in's timeline: a canonical dump of a whole
// project, and a recorder of what a change manager delivers.
#pragma once

#include "host/engine/HostStoryboardBuilder.h"
#include "host/engine/TUSceneChangeManager.h"

#include <QObject>
#include <QString>
#include <QStringList>

class SC_Project;

/// Every scene, block, warp, transition, camera key, record and node of a project as
/// text, in project order; two projects with equal dumps hold the same state.
QString engineDump(SC_Project const* project);

/// Builds a storyboard from a description, failing the current test when refused.
HostStoryboard engineBoard(QString const& description, TUSceneChangeManager* manager = nullptr);

/// Records the deliveries of a change manager, one line per signal in delivery
/// order: "sceneChanged", "timedValuesChanged 2" (the size of the set), ...
class EngineChangeRecorder
{
public:
    explicit EngineChangeRecorder(TUSceneChangeManager& manager);

    QStringList lines;
    TUTvSet lastChanged;
    TUTvSet lastAdded;
    TUTvSet lastRemoved;
    TUMetadataSet lastMetadata;

    /// The lines so far, then forgets them.
    QStringList take();

private:
    // Ends the connections when the recorder goes, whatever the manager's life.
    QObject m_context;
};

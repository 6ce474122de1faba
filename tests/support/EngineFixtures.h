// Test helpers for the engine stand-in's timeline: a canonical dump of a whole
// project, and a recorder of what a change manager delivers.
#pragma once

#include "host/engine/HostStoryboardBuilder.h"
#include "host/engine/TUSceneChangeManager.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <map>

class SC_Project;

/// Every scene, block, warp, transition, camera key, record and node of a project as
/// text, in project order; two projects with equal dumps hold the same state.
QString engineDump(SC_Project const* project);

/// Builds a storyboard from a description, failing the current test when refused.
HostStoryboard engineBoard(QString const& description, TUSceneChangeManager* manager = nullptr);

/// Records the deliveries of a change manager, one line per signal in delivery
/// order: "sceneChanged", "timedValuesChanged 2" (the size of the set), ...; and by
/// signal, the names of the nodes and timed values carried ("<gone>" for a node that
/// is no more).
class EngineChangeRecorder
{
public:
    explicit EngineChangeRecorder(TUSceneChangeManager& manager);

    QStringList lines;
    std::map<QString, QStringList> names;
    TUTvSet lastChanged;
    TUTvSet lastAdded;
    TUTvSet lastRemoved;
    TUMetadataSet lastMetadata;

    /// The lines so far, then forgets them and the names.
    QStringList take();
    /// The names as "signal: a b c", the names sorted, the signals in alphabetical order.
    QStringList nameLines() const;

private:
    // Ends the connections when the recorder goes, whatever the manager's life.
    QObject m_context;
};

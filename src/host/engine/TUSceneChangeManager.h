// The scene engine's change manager: edits are posted, and go out at notify().
#pragma once

#include "host/base/UT_SharedWeakPtr.h"

#include <QObject>

#include <set>

class MO_Node;
class PIO_Metadata;
class SC_ProjectCommon;
class SC_SceneBase;
class TUTimedValue;

/// One change of a record: the record and the code given to PIO_Metadata::emitChanged.
struct PIO_MetaModif
{
    PIO_MetaModif() = default;
    PIO_MetaModif(PIO_Metadata* record, int changeCode)
        : metadata(record)
        , code(changeCode)
    {
    }

    PIO_Metadata* metadata = nullptr;
    int code = 0;
};

bool operator<(PIO_MetaModif const& a, PIO_MetaModif const& b);
bool operator==(PIO_MetaModif const& a, PIO_MetaModif const& b);

/// Ordered sets of what changed, one per kind of change.
typedef std::set<TUTimedValue*> TUTvSet;
typedef std::set<UT_SharedWeakPtr<MO_Node>> TUNodeSet;
typedef std::set<PIO_MetaModif> TUMetadataSet;

/// Collects the changes of the engine and delivers them at notify().
///
/// Every edit of the engine (and every PIO_Metadata::emitChanged) posts here; nothing
/// reaches a listener before notify(). notify() emits each kind once, with the set of
/// what changed, in this order: sceneChanged, timedValuesAdded, timedValuesRemoved,
/// timedValuesChanged, timedValueNamesChanged, networkChanged, subNetworkChanged,
/// childrenOrderingChanged, nodeLinksChanged, nodesChanged, nodeInstanceNamesChanged,
/// nodeChangeApplied (once per node still alive, in node order), metadataChanged,
/// selectionChanged. A kind with nothing collected is not emitted. What a listener
/// posts while notify() runs goes out at the following notify().
///
/// Objects that an edit removes (timed values, scenes) are kept alive until the
/// notify() that reports them has returned, or until clear(), so that listeners can
/// still look at what the sets point to.
///
/// One manager serves a whole session and any number of projects. Threading: the
/// host's thread; signals are delivered directly.
class TUSceneChangeManager : public QObject
{
    Q_OBJECT

public:
    explicit TUSceneChangeManager(QObject* parent = nullptr);
    ~TUSceneChangeManager() override;

    /// Delivers everything collected since the last notify() or clear(). Does
    /// nothing while notification is held back: everything stays pending.
    virtual void notify();
    /// Drops everything collected, and disposes of removed objects.
    virtual void clear();

    /// False while at least one hold is in force.
    bool isNotifyEnabled() const;
    /// Holds notification back; holds nest. Releasing the last hold does not
    /// notify by itself.
    void holdNotify();
    void releaseNotify();

    /// Holds notification back for its own lifetime.
    class HoldScope
    {
    public:
        explicit HoldScope(TUSceneChangeManager* manager);
        HoldScope(HoldScope const&) = delete;
        HoldScope& operator=(HoldScope const&) = delete;
        ~HoldScope();

    private:
        TUSceneChangeManager* m_manager;
    };

    /// True when a change of the model is pending: anything but a selection change.
    bool hasPendingChanges() const;
    /// Makes the next notify() emit sceneChanged().
    void markSceneChanged();

    // Posting. Null arguments are ignored.
    void postSceneChanged();
    void postTimedValueChanged(TUTimedValue* value);
    void postTimedValueAdded(TUTimedValue* value);
    void postTimedValueRemoved(TUTimedValue* value);
    void postTimedValueNameChanged(TUTimedValue* value);
    void postNodeChanged(MO_Node* node);
    void postNetworkChanged(MO_Node* node);
    void postSubNetworkChanged(MO_Node* node);
    void postChildrenOrderingChanged(MO_Node* node);
    void postNodeLinksChanged(MO_Node* node);
    void postNodeInstanceNameChanged(MO_Node* node);
    void postNodeChangeApplied(MO_Node* node);
    void postSelectionChanged();
    void postMetadataChanged(PIO_Metadata* record, int code);

    /// Takes a removed timed value and deletes it after the notify() that reports it.
    void disposeLater(TUTimedValue* value);
    /// Keeps a removed scene alive until after the notify() that reports it.
    void disposeLater(SC_SceneBase* scene);
    /// Forgets everything pending about a project that is going away, and disposes
    /// of its removed objects now. Called by the project's destructor.
    void forgetProject(SC_ProjectCommon* project);

signals:
    void sceneChanged();
    void timedValuesChanged(const TUTvSet& values);
    void timedValuesAdded(const TUTvSet& values);
    void timedValuesRemoved(const TUTvSet& values);
    void timedValueNamesChanged(const TUTvSet& values);
    void nodesChanged(const TUNodeSet& nodes);
    void networkChanged(const TUNodeSet& nodes);
    void subNetworkChanged(const TUNodeSet& nodes);
    void childrenOrderingChanged(const TUNodeSet& nodes);
    void nodeLinksChanged(const TUNodeSet& nodes);
    void nodeInstanceNamesChanged(const TUNodeSet& nodes);
    void nodeChangeApplied(MO_Node* node);
    void selectionChanged();
    void metadataChanged(const TUMetadataSet& records);

private:
    class TUSceneChangeManagerPrivate;
    TUSceneChangeManagerPrivate* d;
};

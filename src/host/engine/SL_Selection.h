// The engine's selection of nodes, its entries and the helpers that select nodes.
#pragma once

#include "host/base/UT_ShareBase.h"
#include "host/base/UT_SharedPtr.h"
#include "host/base/UT_SharedWeakPtr.h"

#include <vector>

class MO_Node;
class TUSceneChangeManager;

/// An entry of the selection: something that can be selected. Shared by reference
/// count between the selection and whoever looks at it.
class SLB_SelectedInterface : public UT_ShareBase
{
public:
    ~SLB_SelectedInterface() override;

    /// True when both entries select the same thing; the selection holds one of them.
    virtual bool isSameSelection(SLB_SelectedInterface const& other) const = 0;
};

/// The entry of a selected node. It holds the node weakly: `selectable()` reads null
/// once the node is gone, and the entry then stands for nothing until it is removed
/// or the selection cleared; it is never the same selection as another node's entry.
class SLB_NodeInterface : public SLB_SelectedInterface
{
public:
    explicit SLB_NodeInterface(MO_Node* node);
    ~SLB_NodeInterface() override;

    MO_Node* selectable() const;
    bool isSameSelection(SLB_SelectedInterface const& other) const override;

private:
    UT_SharedWeakPtr<MO_Node> m_node;
};

/// The selection of a session: a set of entries, kept in the order they were added,
/// without two entries for the same thing.
///
/// Each change posts selectionChanged to the change manager given at construction
/// (none goes out before its notify()). While a BatchSelectionModeScope is open, the
/// changes are held back and one selectionChanged is posted when the outermost scope
/// closes, if anything changed. Scopes nest. A change that changes nothing (adding
/// what is there, clearing an empty selection) posts nothing.
/// Single-threaded, the host's thread.
class SL_Selection
{
public:
    using Entries = std::vector<UT_SharedPtr<SLB_SelectedInterface>>;
    using const_iterator = Entries::const_iterator;

    /// `changeManager` may be null: the selection then posts nowhere.
    explicit SL_Selection(TUSceneChangeManager* changeManager = nullptr);
    SL_Selection(SL_Selection const&) = delete;
    SL_Selection& operator=(SL_Selection const&) = delete;
    ~SL_Selection();

    const_iterator begin() const;
    const_iterator end() const;
    int size() const;
    bool isEmpty() const;

    /// Adds an entry unless the same thing is selected already; true if added.
    bool add(UT_SharedPtr<SLB_SelectedInterface> const& entry);
    /// Removes the entry that selects the same thing; true if one was removed.
    bool remove(SLB_SelectedInterface const& entry);
    bool contains(SLB_SelectedInterface const& entry) const;
    /// Removes every entry.
    void clear();

    TUSceneChangeManager* changeManager() const;
    /// True while a batch scope is open.
    bool isInBatch() const;

    /// Holds selectionChanged back for its lifetime; a null selection is allowed and
    /// makes the scope do nothing.
    class BatchSelectionModeScope
    {
    public:
        explicit BatchSelectionModeScope(SL_Selection* selection);
        BatchSelectionModeScope(BatchSelectionModeScope const&) = delete;
        BatchSelectionModeScope& operator=(BatchSelectionModeScope const&) = delete;
        ~BatchSelectionModeScope();

    private:
        SL_Selection* m_selection;
    };

private:
    void changed();

    class SL_SelectionPrivate;
    SL_SelectionPrivate* d;
};

/// Selects nodes. Each operation accepts null arguments and then does nothing.
class SL_SelectionUtil
{
public:
    /// Adds the node; true if it was not selected before.
    static bool addToSelection(SL_Selection* selection, MO_Node* node);
    /// Removes the node; true if it was selected.
    static bool removeFromSelection(SL_Selection* selection, MO_Node* node);
    static bool isIn(SL_Selection* selection, MO_Node* node);
};

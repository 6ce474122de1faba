#include "host/engine/SL_Selection.h"

#include "host/engine/MO_Node.h"
#include "host/engine/TUSceneChangeManager.h"

#include <algorithm>

SLB_SelectedInterface::~SLB_SelectedInterface() = default;

SLB_NodeInterface::SLB_NodeInterface(MO_Node* node)
    : m_node(node)
{
}

SLB_NodeInterface::~SLB_NodeInterface() = default;

MO_Node* SLB_NodeInterface::selectable() const
{
    return m_node.get();
}

bool SLB_NodeInterface::isSameSelection(SLB_SelectedInterface const& other) const
{
    // Compare live nodes only: a node made where a removed one stood is another node.
    auto const* entry = dynamic_cast<SLB_NodeInterface const*>(&other);
    return entry == this || (entry && selectable() && entry->selectable() == selectable());
}

class SL_Selection::SL_SelectionPrivate
{
public:
    TUSceneChangeManager* changeManager;
    Entries entries;
    int batchDepth = 0;
    bool changedInBatch = false;

    Entries::iterator find(SLB_SelectedInterface const& entry)
    {
        return std::find_if(
            entries.begin(), entries.end(), [&entry](UT_SharedPtr<SLB_SelectedInterface> const& held) {
                return held->isSameSelection(entry);
            });
    }
};

SL_Selection::SL_Selection(TUSceneChangeManager* changeManager)
    : d(new SL_SelectionPrivate)
{
    d->changeManager = changeManager;
}

SL_Selection::~SL_Selection()
{
    delete d;
}

SL_Selection::const_iterator SL_Selection::begin() const
{
    return d->entries.cbegin();
}

SL_Selection::const_iterator SL_Selection::end() const
{
    return d->entries.cend();
}

int SL_Selection::size() const
{
    return int(d->entries.size());
}

bool SL_Selection::isEmpty() const
{
    return d->entries.empty();
}

bool SL_Selection::add(UT_SharedPtr<SLB_SelectedInterface> const& entry)
{
    if (!entry || d->find(*entry) != d->entries.end())
        return false;
    d->entries.push_back(entry);
    changed();
    return true;
}

bool SL_Selection::remove(SLB_SelectedInterface const& entry)
{
    const auto it = d->find(entry);
    if (it == d->entries.end())
        return false;
    d->entries.erase(it);
    changed();
    return true;
}

bool SL_Selection::contains(SLB_SelectedInterface const& entry) const
{
    return d->find(entry) != d->entries.end();
}

void SL_Selection::clear()
{
    if (d->entries.empty())
        return;
    d->entries.clear();
    changed();
}

TUSceneChangeManager* SL_Selection::changeManager() const
{
    return d->changeManager;
}

bool SL_Selection::isInBatch() const
{
    return d->batchDepth > 0;
}

void SL_Selection::changed()
{
    if (d->batchDepth > 0)
        d->changedInBatch = true;
    else if (d->changeManager)
        d->changeManager->postSelectionChanged();
}

SL_Selection::BatchSelectionModeScope::BatchSelectionModeScope(SL_Selection* selection)
    : m_selection(selection)
{
    if (m_selection)
        ++m_selection->d->batchDepth;
}

SL_Selection::BatchSelectionModeScope::~BatchSelectionModeScope()
{
    if (!m_selection || --m_selection->d->batchDepth > 0)
        return;
    if (m_selection->d->changedInBatch) {
        m_selection->d->changedInBatch = false;
        m_selection->changed();
    }
}

bool SL_SelectionUtil::addToSelection(SL_Selection* selection, MO_Node* node)
{
    if (!selection || !node)
        return false;
    return selection->add(UT_SharedPtr<SLB_SelectedInterface>(new SLB_NodeInterface(node)));
}

bool SL_SelectionUtil::removeFromSelection(SL_Selection* selection, MO_Node* node)
{
    return selection && node && selection->remove(SLB_NodeInterface(node));
}

bool SL_SelectionUtil::isIn(SL_Selection* selection, MO_Node* node)
{
    return selection && node && selection->contains(SLB_NodeInterface(node));
}

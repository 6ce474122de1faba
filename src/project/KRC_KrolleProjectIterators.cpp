// The iterators that the view hands out, and the mixed iterator at a transition.
#include "project/KRC_KrolleProject.h"

using Krolle::objiterator;
using Krolle::objTransIterator;
using Krolle::Panel_t;
using Krolle::reverse_objiterator;
using Krolle::reverse_objTransIterator;
using Krolle::Shot_t;
using Krolle::Trans_t;

objiterator<Shot_t> KRC_KrolleProject::beginShot() const
{
    return { first(Shot_t::invalid), this };
}

objiterator<Shot_t> KRC_KrolleProject::endShot() const
{
    return { Shot_t::invalid, this };
}

reverse_objiterator<Shot_t> KRC_KrolleProject::rbeginShot() const
{
    return { last(Shot_t::invalid), this };
}

reverse_objiterator<Shot_t> KRC_KrolleProject::rendShot() const
{
    return { Shot_t::invalid, this };
}

objiterator<Panel_t> KRC_KrolleProject::beginPanel() const
{
    return { first(Panel_t::invalid), this };
}

objiterator<Panel_t> KRC_KrolleProject::endPanel() const
{
    return { Panel_t::invalid, this };
}

reverse_objiterator<Panel_t> KRC_KrolleProject::rbeginPanel() const
{
    return { last(Panel_t::invalid), this };
}

reverse_objiterator<Panel_t> KRC_KrolleProject::rendPanel() const
{
    return { Panel_t::invalid, this };
}

objiterator<Panel_t> KRC_KrolleProject::beginPanel(Shot_t const& shot) const
{
    return { firstPanelOf(shot), this };
}

// The panel after the shot's last one, not a marker: a walk from beginPanel(shot)
// meets it exactly.
objiterator<Panel_t> KRC_KrolleProject::endPanel(Shot_t const& shot) const
{
    return { next(lastPanelOf(shot)), this };
}

reverse_objiterator<Panel_t> KRC_KrolleProject::rbeginPanel(Shot_t const& shot) const
{
    return { lastPanelOf(shot), this };
}

reverse_objiterator<Panel_t> KRC_KrolleProject::rendPanel(Shot_t const& shot) const
{
    return { prev(firstPanelOf(shot)), this };
}

objiterator<Trans_t> KRC_KrolleProject::beginTrans() const
{
    return { first(Trans_t::invalid), this };
}

objiterator<Trans_t> KRC_KrolleProject::endTrans() const
{
    return { Trans_t::invalid, this };
}

reverse_objiterator<Trans_t> KRC_KrolleProject::rbeginTrans() const
{
    return { last(Trans_t::invalid), this };
}

reverse_objiterator<Trans_t> KRC_KrolleProject::rendTrans() const
{
    return { Trans_t::invalid, this };
}

objTransIterator<Shot_t> KRC_KrolleProject::beginShotTrans() const
{
    return { first(Shot_t::invalid), Trans_t::invalid, true, this };
}

objTransIterator<Shot_t> KRC_KrolleProject::endShotTrans() const
{
    return { Shot_t::invalid, Trans_t::invalid, true, this };
}

objTransIterator<Panel_t> KRC_KrolleProject::beginPanelTrans() const
{
    return { first(Panel_t::invalid), Trans_t::invalid, true, this };
}

objTransIterator<Panel_t> KRC_KrolleProject::endPanelTrans() const
{
    return { Panel_t::invalid, Trans_t::invalid, true, this };
}

reverse_objTransIterator<Panel_t> KRC_KrolleProject::rbeginPanelTrans() const
{
    return { last(Panel_t::invalid), Trans_t::invalid, true, this };
}

reverse_objTransIterator<Panel_t> KRC_KrolleProject::rendPanelTrans() const
{
    return { Panel_t::invalid, Trans_t::invalid, true, this };
}

objTransIterator<Panel_t> KRC_KrolleProject::panelTransOn(Trans_t const& trans) const
{
    // The panel that ends with the transition wins over one that starts with it.
    for (Panel_t panel = first(Panel_t::invalid); panel.isValid(); panel = next(panel)) {
        if (panel.lastFrame() == trans.lastFrame())
            return { panel, trans, true, this };
        if (panel.firstFrame() == trans.firstFrame())
            return { panel, trans, false, this };
    }
    return { Panel_t::invalid, trans, true, this };
}

objTransIterator<Panel_t> KRC_KrolleProject::panelTransAt(unsigned frame) const
{
    Trans_t const trans = getTransAt(frame);
    if (trans.isValid())
        return panelTransOn(trans);
    return { getPanelAt(frame, PreferPrevious), Trans_t::invalid, true, this };
}

objTransIterator<Panel_t> KRC_KrolleProject::panelTransById(SC_Id const& id) const
{
    Trans_t const trans = getTransByID(id);
    if (trans.isValid())
        return panelTransOn(trans);
    return { getPanelByID(id), Trans_t::invalid, true, this };
}

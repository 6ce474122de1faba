#include "PanelLengths.h"

#include "project/KRC_KrolleProject.h"

namespace {

unsigned lengthOf(const Krolle::Panel_t& panel)
{
    return panel.lastFrame() - panel.firstFrame() + 1;
}

} // namespace

void PanelLengths::add(const KRC_KrolleProject& view, const Krolle::Shot_t& shot)
{
    for (auto panel = view.beginPanel(shot), end = view.endPanel(shot); panel != end; ++panel)
        m_lengths[panel->id()] = lengthOf(*panel);
}

std::vector<SC_Id> PanelLengths::changed(const KRC_KrolleProject& view) const
{
    std::vector<SC_Id> ids;
    for (const auto& [id, length] : m_lengths) {
        const Krolle::Panel_t panel = view.getPanelByID(id);
        if (panel.isValid() && lengthOf(panel) != length)
            ids.push_back(id);
    }
    return ids;
}

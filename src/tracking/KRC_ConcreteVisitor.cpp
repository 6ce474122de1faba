#include "tracking/KRC_ConcreteVisitor.h"

#include "layers/KRC_PanelLayerManager.h"
#include "project/KRC_KrolleProject.h"

#include <functional>
#include <vector>

namespace {

/// Visits every element and hands it to `take`, skipping those switched off when
/// asked to. One frame for all the list forms; each form says what it takes.
class ElementWalker : public MO_ModuleVisitor
{
public:
    using Take = std::function<void(MO_ElementModule&)>;

    ElementWalker(bool onlyEnabled, Take take)
        : m_onlyEnabled(onlyEnabled)
        , m_take(std::move(take))
    {
    }

    using MO_ModuleVisitor::visit;
    void visit(MO_ElementModule& element) override
    {
        if (m_onlyEnabled && element.enabled() == 0)
            return;
        m_take(element);
    }

private:
    bool const m_onlyEnabled;
    Take const m_take;
};

void walk(Krolle::Panel_t const& panel, bool onlyEnabled, ElementWalker::Take take)
{
    ElementWalker walker(onlyEnabled, std::move(take));
    panel.symbol()->getRootGroup()->accept(walker);
}

/// Calls `take` with each element and its valid key at frame 1.
void walkKeys(
    Krolle::Panel_t const& panel, bool onlyEnabled, std::function<void(MO_ElementModule&, CA_CelKey const&)> take)
{
    walk(panel, onlyEnabled, [&take](MO_ElementModule& element) {
        CA_CelKey const key = element.drawingAttr()->key(1.0);
        if (key.isValid())
            take(element, key);
    });
}

} // namespace

namespace KRC_ConcreteVisitor {

void getDrawings(Krolle::Panel_t const& panel, std::list<CA_CelKey>& out, bool onlyEnabled)
{
    walkKeys(panel, onlyEnabled, [&out](MO_ElementModule&, CA_CelKey const& key) { out.push_back(key); });
}

void getDrawings(Krolle::Panel_t const& panel, std::list<QString>& out, bool onlyEnabled)
{
    std::list<CA_CelKey> keys;
    getDrawings(panel, keys, onlyEnabled);
    for (CA_CelKey const& key : keys)
        out.push_back(CA_CelKeyMgr::loadFilename(key));
}

void getDrawings(Krolle::Panel_t const& panel, std::list<int>& out, bool onlyEnabled)
{
    walk(panel, onlyEnabled,
        [&out](MO_ElementModule& element) { out.push_back(element.drawingAttr()->getElementId()); });
}

void getDrawings(Krolle::Panel_t const& panel, std::list<ElementFile>& out, bool onlyEnabled)
{
    walkKeys(panel, onlyEnabled, [&out](MO_ElementModule& element, CA_CelKey const& key) {
        out.emplace_back(&element, CA_CelKeyMgr::loadFilename(key));
    });
}

void getDrawings(Krolle::Panel_t const& panel, std::list<ElementKey>& out, bool onlyEnabled)
{
    walkKeys(panel, onlyEnabled,
        [&out](MO_ElementModule& element, CA_CelKey const& key) { out.emplace_back(&element, key); });
}

void getDrawings(Krolle::Panel_t const& panel, DrawingsByElement& out)
{
    walk(panel, false, [&out](MO_ElementModule& element) { getDrawings(&element, out); });
}

void getDrawings(KRC_KrolleProject const* project, DrawingsByElement& out)
{
    for (auto it = project->beginPanel(); it != project->endPanel(); ++it)
        getDrawings(*it, out);
}

void getDrawings(MO_Node const* node, DrawingsByElement& out)
{
    if (auto const* element = dynamic_cast<MO_ElementModule const*>(node)) {
        CA_CelKey const key = element->drawingAttr()->key(1.0);
        int const id = CA_CelKeyMgr::id(key);
        int const drawing = CA_CelKeyMgr::drawingId(key);
        if (id != -1 && drawing != -1)
            out[id].insert(drawing);
    }
    std::vector<MO_Node*> below;
    KRC_PanelLayerManager::getNodeAndChildren(node, below, false);
    for (MO_Node const* each : below)
        getDrawings(each, out);
}

} // namespace KRC_ConcreteVisitor

#include "layers/ElementModuleCollector.h"

ElementModuleCollector::ElementModuleCollector(
    std::vector<MO_Node*>& out, KRC_PanelLayerManager::LayerType_t mask)
    : m_out(out)
    , m_mask(mask)
{
}

KRC_PanelLayerManager::LayerType_t ElementModuleCollector::kindOf(MO_ElementModule const& element)
{
    const CA_CelKey key = element.drawingAttr()->key(1.0);
    if (key.is3d())
        return KRC_PanelLayerManager::LayerType_3d;
    if (key.isKvg() || key.isBitmap())
        return KRC_PanelLayerManager::LayerType_Drawing;
    return KRC_PanelLayerManager::LayerType_Other;
}

void ElementModuleCollector::visit(MO_ElementModule& element)
{
    // An element without a drawing attribute is no layer of any kind.
    if (element.getParentNode() || !element.drawingAttr())
        return;
    // Every key falls into one of the three element kinds: a mask that takes all three
    // needs no key.
    const int elementKinds = KRC_PanelLayerManager::LayerType_Other | KRC_PanelLayerManager::LayerType_Drawing
        | KRC_PanelLayerManager::LayerType_3d;
    if ((m_mask & elementKinds) == elementKinds || (kindOf(element) & m_mask))
        m_out.push_back(&element);
}

void ElementModuleCollector::visit(MO_AnimatedModule& module)
{
    if ((m_mask & KRC_PanelLayerManager::LayerType_Animated) && !module.getParentNode())
        m_out.push_back(&module);
}

#include "OutlineLayers.h"

#include "StoryboardOutline.h"

#include "layers/KRC_PanelLayerManager.h"
#include "project/KRC_KrolleProject.h"


namespace {

const QString kLayers = QStringLiteral("layers");

} // namespace

void OutlineLayers::add(QJsonObject& outline, const KRC_KrolleProject& view)
{
    const KRC_PanelLayerManager* layers = view.layerManager();
    StoryboardOutline::addToPanels(outline, view, kLayers, [layers](const Krolle::Panel_t& panel) {
        return static_cast<int>(layers->getLayersCount(panel.symbol()));
    });
    outline.insert(QStringLiteral("layerCounts"), true);
}

QString OutlineLayers::cell(const QJsonObject& panel)
{
    return panel.contains(kLayers) ? QString::number(panel.value(kLayers).toInt()) : QString();
}

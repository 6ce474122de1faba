#include "OutlineLayers.h"

#include "layers/KRC_PanelLayerManager.h"
#include "project/KRC_KrolleProject.h"

#include <QJsonArray>

namespace {

const QString kLayers = QStringLiteral("layers");
const QString kPanels = QStringLiteral("panels");

} // namespace

void OutlineLayers::add(QJsonObject& outline, const KRC_KrolleProject& view)
{
    const KRC_PanelLayerManager* layers = view.layerManager();
    auto panel = view.beginPanel();
    QJsonArray shots = outline.value(QStringLiteral("shots")).toArray();
    for (auto shot = shots.begin(); shot != shots.end(); ++shot) {
        QJsonObject shotObject = shot->toObject();
        QJsonArray panels = shotObject.value(kPanels).toArray();
        for (auto entry = panels.begin(); entry != panels.end(); ++entry, ++panel) {
            QJsonObject panelObject = entry->toObject();
            panelObject.insert(kLayers, static_cast<int>(layers->getLayersCount(panel->symbol())));
            *entry = panelObject;
        }
        shotObject.insert(kPanels, panels);
        *shot = shotObject;
    }
    outline.insert(QStringLiteral("shots"), shots);
    outline.insert(QStringLiteral("layerCounts"), true);
}

QString OutlineLayers::cell(const QJsonObject& panel)
{
    return panel.contains(kLayers) ? QString::number(panel.value(kLayers).toInt()) : QString();
}

#include "PanelLayerPlan.h"

#include "ProgressBar.h"
#include "ProjectDocument.h"

#include "project/KRC_KrolleProject.h"

namespace {

// The file of a layer's one drawing in a panel: elements/<layer>/<layer>-<panel>.<ext>.
QString drawingFile(const QString& layer, unsigned panel, CA_DrawingKind kind)
{
    const char* extension = kind == CA_DrawingKind::Bitmap ? "png"
        : kind == CA_DrawingKind::Model3d                  ? "obj"
                                                           : "tvg";
    return QStringLiteral("elements/%1/%1-%2.%3").arg(layer).arg(panel).arg(QLatin1String(extension));
}

MO_ElementModule* addLayer(TUGroup* group, const QString& name, CA_DrawingKind kind, unsigned panel,
    int length, MO_Node* parent = nullptr)
{
    return HostNodeAuthoring::addDrawingElement(
        group, name, kind, drawingFile(name, panel, kind), 1, length, parent);
}

bool every(unsigned panel, unsigned step)
{
    return panel % step == 0;
}

} // namespace

void PanelLayerPlan::build(ProjectDocument& document, unsigned panelCount) const
{
    if (m_recipe == Recipe::None || (m_recipe == Recipe::Generated && m_count == 0))
        return;
    KRC_KrolleProject& view = document.view();
    ProgressBar progress(QStringLiteral("drawing layers"), panelCount);
    unsigned number = 0;
    for (auto panel = view.beginPanel(), end = view.endPanel(); panel != end; ++panel) {
        TUScene* scene = panel->symbol();
        const int length = static_cast<int>(panel->relativeLastFrame() - panel->relativeFirstFrame() + 1);
        if (m_recipe == Recipe::Demo)
            addDemoLayers(scene->getRootGroup(), ++number, length);
        else
            addGeneratedLayers(scene->getRootGroup(), ++number, length);
        progress.advance();
    }
    document.notify();
}

void PanelLayerPlan::addDemoLayers(TUGroup* root, unsigned panel, int length) const
{
    using namespace HostNodeAuthoring;
    addLayer(root, QStringLiteral("Background"), CA_DrawingKind::Bitmap, panel, length);
    if (every(panel, 3))
        addLayer(root, QStringLiteral("Set"), CA_DrawingKind::Model3d, panel, length);
    TUPegModule* characters = addPeg(root, QStringLiteral("Characters"));
    addLayer(root, QStringLiteral("Hero"), CA_DrawingKind::Kvg, panel, length, characters);
    if (every(panel, 4)) {
        TUGroup* effects = addGroup(root, QStringLiteral("Effects"));
        addLayer(effects, QStringLiteral("Dust"), CA_DrawingKind::Kvg, panel, length);
    }
    if (every(panel, 5)) {
        MO_ElementModule* rough = addLayer(root, QStringLiteral("Rough"), CA_DrawingKind::Kvg, panel, length);
        setOpacity(rough, 50.0);
        setEnabled(rough, false);
    }
    if (every(panel, 2))
        setLocked(addLayer(root, QStringLiteral("Notes"), CA_DrawingKind::Kvg, panel, length), true);
    if (panel == 1 || every(panel, 6))
        setCameraAlignment(addPeg(root, QStringLiteral("Camera")), CameraAlignment_PinToCamera);
}

void PanelLayerPlan::addGeneratedLayers(TUGroup* root, unsigned panel, int length) const
{
    addLayer(root, QStringLiteral("Background"), CA_DrawingKind::Bitmap, panel, length);
    for (unsigned layer = 1; layer < m_count; ++layer) {
        const QString name = QStringLiteral("Layer%1").arg(layer);
        switch (layer % 4) {
        case 3:
            HostNodeAuthoring::addPeg(root, name);
            break;
        case 0:
            addLayer(root, name, CA_DrawingKind::Model3d, panel, length);
            break;
        default:
            addLayer(root, name, CA_DrawingKind::Kvg, panel, length);
        }
    }
}

#include "PrintedPanel.h"

#include "InfoFieldText.h"
#include "Timecode.h"

#include "infofields/KRC_InfoFieldList.h"
#include "layers/KRC_PanelLayerManager.h"
#include "metadata/KRC_SceneInfo.h"
#include "project/KRC_KrolleProject.h"

PrintedPanel PrintedPanel::read(const KRC_KrolleProject& view, const Krolle::Panel_t& panel,
    const QVector<int>& fieldIds, const QStringList& fieldNames, const Timecode& clock)
{
    PrintedPanel printed;
    printed.shot = panel.shotName();
    printed.panel = panel.name();
    // An act without a name of its own is no heading: its automatic name is a bare number.
    const KRC_SceneInfo* shotInfo = panel.shot().sceneInfo();
    printed.act = shotInfo && shotInfo->actName().isCustom() ? panel.actName() : QString();
    printed.sequence = view.sequenceExists() ? panel.sequenceName() : QString();
    printed.length = panel.lastFrame() - panel.firstFrame() + 1;
    printed.duration = clock.ofLength(printed.length);
    const KRC_InfoFieldList* values = panel.infoFieldList();
    for (int i = 0; values && i < fieldIds.size(); ++i) {
        const QString text = InfoFieldText::plain(values->getInfoField(fieldIds[i]).get()).trimmed();
        if (!text.isEmpty())
            printed.fields << QStringLiteral("%1: %2").arg(fieldNames[i], text);
    }
    printed.imageKey = InfoFieldText::imageKey(panel);
    view.layerManager()->getLayers(panel.symbol(), printed.layers);
    return printed;
}

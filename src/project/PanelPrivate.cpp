#include "project/PanelPrivate.h"

#include "project/EngineLinks.h"

namespace Krolle {

PanelPrivate::PanelPrivate(
    AT_FrameBlock const* block, TUScene* panelScene, Shot_t const& holder, ObjectNameHelper const* helper)
    : ObjectPrivate(block, helper)
    , symbol(panelScene)
    , shot(holder)
    , panelInfo(metadatasOf(panelScene))
    , infoFieldList(PIO_MetadataAccess<KRC_InfoFieldList>::lookupOnly(metadatasOf(panelScene)))
    , tracking(metadatasOf(panelScene))
    , layerInfos(metadatasOf(panelScene))
    // Panel exposure points.
    , exposurePoints(metadatasOf(panelScene))
    // Panel sound annotations.
    , soundAnnotation(metadatasOf(panelScene))
    , pdfOptions(metadatasOf(panelScene))
{
}

PanelPrivate::~PanelPrivate() = default;

PanelPrivate* PanelPrivate::invalidInstance()
{
    static PanelPrivate* const instance = immortal(new PanelPrivate(nullptr, nullptr, Shot_t(), nullptr));
    return instance;
}

} // namespace Krolle

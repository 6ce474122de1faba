// The private object of a panel handle.
#pragma once

#include "infofields/KRC_InfoFieldList.h"
#include "metadata/KRC_LayerInfos.h"
#include "metadata/KRC_PanelInfo.h"
// Panel exposure and sound records.
#include "metadata/KRC_ExposurePoints.h"
#include "metadata/KRC_SoundAnnotation.h"
#include "metadata/KRC_PdfOptions.h"
#include "metadata/KRC_Tracking.h"
#include "metadata/PIO_MetadataAccess.h"
#include "project/ObjectPrivate.h"
#include "project/Shot_t.h"

namespace Krolle {

/// A panel's block in its shot's symbol sequence, with a weak pointer to the panel's
/// own scene, the shot that holds it (shared, so the shot's private object lives as
/// long as this one) and the accesses to the panel scene's records.
///
/// Made by the project view when a panel is first asked for. Threading: the host's
/// thread.
class PanelPrivate : public ObjectPrivate
{
public:
    PanelPrivate(AT_FrameBlock const* block, TUScene* panelScene, Shot_t const& holder,
        ObjectNameHelper const* helper);
    ~PanelPrivate() override;

    /// The private object of every invalid panel: null block, helper and scene, and
    /// the invalid shot.
    static PanelPrivate* invalidInstance();

    UT_SharedWeakPtr<TUScene> symbol;
    Shot_t shot;

    // Record accesses over the panel scene's metadatas(), with a null name, follow
    // here in their order of creation: KRC_PanelInfo, KRC_InfoFieldList,
    // KRC_Tracking, KRC_ExposurePoints, KRC_LayerInfos, KRC_SoundAnnotation,
    // KRC_PdfOptions.
    PIO_MetadataAccess<KRC_PanelInfo> panelInfo;
    /// Looks up without creating; Panel_t::infoFieldList() creates the list on its
    /// first read, so panels without fields save no empty record.
    PIO_MetadataAccess<KRC_InfoFieldList> infoFieldList;
    PIO_MetadataAccess<KRC_Tracking> tracking;
    PIO_MetadataAccess<KRC_LayerInfos> layerInfos;
    // Panel exposure points.
    PIO_MetadataAccess<KRC_ExposurePoints> exposurePoints;
    // Panel sound annotations.
    PIO_MetadataAccess<KRC_SoundAnnotation> soundAnnotation;
    PIO_MetadataAccess<KRC_PdfOptions> pdfOptions;
};

} // namespace Krolle

#include "metadata/KRC_MetadataFactory.h"

// Info field records.
#include "infofields/KRC_ExtraInfoFieldDescList.h"
#include "infofields/KRC_HiddenInfoFieldList.h"
#include "infofields/KRC_InfoFieldList.h"
#include "infofields/KRC_PanelInfoFieldDescList.h"
#include "infofields/KRC_ProjectInfoFieldDescList.h"

#include "metadata/KRC_LayerInfos.h"
// Panel exposure and sound records.
#include "metadata/KRC_ExposurePoints.h"
#include "metadata/KRC_SoundAnnotation.h"

#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_PdfOptions.h"
#include "metadata/KRC_ReferenceToolData.h"
#include "metadata/KRC_SceneInfo.h"
#include "metadata/KRC_Tracking.h"
#include "naming/KRC_NamingRules.h"

#include <vector>

namespace {

using Creator = PIO_Metadata* (*)(QString const& name, QString const& creator, QString const& version);

struct Entry
{
    QString keyword;
    Creator create;
};

template <class Record>
PIO_Metadata* create(QString const& name, QString const& creator, QString const& version)
{
    return new Record(name, creator, version);
}

// The keywords in the order they are tried; a record class takes its place here as it
// arrives. Full order: sceneInfo, panelInfo, projectPanelInfoFieldList,
// scenePanelInfoFieldList, infoFields, extraInfoFieldList, hiddenInfoField,
// exposurePoints, tracking, layerInfos, namingRules, soundAnnotation, pdfOptions,
// referenceToolData.
std::vector<Entry> const& dispatchTable()
{
    static std::vector<Entry> const table {
        { KRC_SceneInfo::kPIO_KRMETA_Keyword, &create<KRC_SceneInfo> },
        { KRC_PanelInfo::kPIO_KRMETA_Keyword, &create<KRC_PanelInfo> },
        // Info field records.
        { KRC_ProjectInfoFieldDescList::kPIO_KRMETA_Keyword, &create<KRC_ProjectInfoFieldDescList> },
        { KRC_PanelInfoFieldDescList::kPIO_KRMETA_Keyword, &create<KRC_PanelInfoFieldDescList> },
        { KRC_InfoFieldList::kPIO_KRMETA_Keyword, &create<KRC_InfoFieldList> },
        { KRC_ExtraInfoFieldDescList::kPIO_KRMETA_Keyword, &create<KRC_ExtraInfoFieldDescList> },
        { KRC_HiddenInfoFieldList::kPIO_KRMETA_Keyword, &create<KRC_HiddenInfoFieldList> },
        // Panel layer records.
        { KRC_Tracking::kPIO_KRMETA_Keyword, &create<KRC_Tracking> },
        { KRC_LayerInfos::kPIO_KRMETA_Keyword, &create<KRC_LayerInfos> },
        // Panel exposure points.
        { KRC_ExposurePoints::kPIO_KRMETA_Keyword, &create<KRC_ExposurePoints> },
        { KRC_NamingRules::kPIO_KRMETA_Keyword, &create<KRC_NamingRules> },
        // Panel sound annotations.
        { KRC_SoundAnnotation::kPIO_KRMETA_Keyword, &create<KRC_SoundAnnotation> },
        { KRC_PdfOptions::kPIO_KRMETA_Keyword, &create<KRC_PdfOptions> },
        { KRC_ReferenceToolData::kPIO_KRMETA_Keyword, &create<KRC_ReferenceToolData> },
    };
    return table;
}

} // namespace

KRC_MetadataFactory::KRC_MetadataFactory() = default;

KRC_MetadataFactory::~KRC_MetadataFactory() = default;

KRC_MetadataFactory* KRC_MetadataFactory::createInstance()
{
    static KRC_MetadataFactory instance;
    static bool const registered = (registerImpl(&instance), true);
    Q_UNUSED(registered);
    return &instance;
}

PIO_Metadata* KRC_MetadataFactory::createMeta(
    QString const& keyword, QString const& name, QString const& creator, QString const& version)
{
    for (Entry const& entry : dispatchTable()) {
        if (entry.keyword == keyword)
            return entry.create(name, creator, version);
    }
    return PIO_MetadataFactory::createMeta(keyword, name, creator, version);
}

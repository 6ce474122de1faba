// Fuzz target of each record's reader, driven through the persistence's collection
// reader: the first byte picks the record keyword, the rest is the content of its
// entry. Whatever is read must save and read back to the same text. One more pick
// reads the rest as a default layer's text (the "DEFAULT_LAYERS" preference).
#include "host/persistence/HostPersistence.h"
#include "infofields/KRC_ExtraInfoFieldDescList.h"
#include "infofields/KRC_HiddenInfoFieldList.h"
#include "infofields/KRC_InfoFieldList.h"
#include "infofields/KRC_PanelInfoFieldDescList.h"
#include "infofields/KRC_ProjectInfoFieldDescList.h"
#include "layers/KRC_PanelLayerManager.h"
#include "metadata/KRC_ExposurePoints.h"
#include "metadata/KRC_LayerInfos.h"
#include "metadata/KRC_MetadataFactory.h"
#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_PdfOptions.h"
#include "metadata/KRC_ReferenceToolData.h"
#include "metadata/KRC_SceneInfo.h"
#include "metadata/KRC_SoundAnnotation.h"
#include "metadata/KRC_Tracking.h"
#include "naming/KRC_NamingRules.h"
#include "support/FuzzCheck.h"

#include <cstdint>
#include <cstdlib>
#include <iterator>

namespace {

using fuzz::check;

struct Keyword
{
    QString const& keyword;
    QString const& version;
};

template <class Record> Keyword keywordOf()
{
    return { Record::kPIO_KRMETA_Keyword, Record::kPIO_KRMETA_Version };
}

// The first five keep their picks, which the seeds name.
Keyword const kKeywords[] = {
    keywordOf<KRC_SceneInfo>(),
    keywordOf<KRC_PanelInfo>(),
    keywordOf<KRC_ReferenceToolData>(),
    keywordOf<KRC_PdfOptions>(),
    keywordOf<KRC_NamingRules>(),
    keywordOf<KRC_ExposurePoints>(),
    keywordOf<KRC_SoundAnnotation>(),
    keywordOf<KRC_LayerInfos>(),
    keywordOf<KRC_Tracking>(),
    keywordOf<KRC_ProjectInfoFieldDescList>(),
    keywordOf<KRC_PanelInfoFieldDescList>(),
    keywordOf<KRC_ExtraInfoFieldDescList>(),
    keywordOf<KRC_HiddenInfoFieldList>(),
    keywordOf<KRC_InfoFieldList>(),
};
std::size_t const kPicks = std::size(kKeywords) + 1;

// A default layer's text read, written and read again gives the same text, unless
// it names no layer (its first field is then taken from the next one).
void readLayerText(QString const& text)
{
    KRC_PanelLayerManager::LayerInfo const first(text);
    QString const written = first.asString();
    if (!first.name.isEmpty())
        check(KRC_PanelLayerManager::LayerInfo(written).asString() == written);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    static KRC_MetadataFactory* const factory = KRC_MetadataFactory::createInstance();
    (void)factory;
    if (size == 0)
        return 0;
    fuzz::quiet();
    std::size_t const pick = data[0] % kPicks;
    if (pick == std::size(kKeywords)) {
        readLayerText(QString::fromUtf8(reinterpret_cast<char const*>(data + 1), int(size - 1)));
        return 0;
    }
    Keyword const& picked = kKeywords[pick];
    QByteArray const document = QStringLiteral("<metadatas><metadata type=\"%1\" version=\"%2\">")
                                    .arg(picked.keyword, picked.version)
                                    .toUtf8()
        + QByteArray(reinterpret_cast<char const*>(data + 1), int(size - 1)) + "</metadata></metadatas>";
    PIO_Metadatas records;
    QString error;
    if (!PIO_MetadatasXml::fromDocument(document, records, &error)) {
        check(records.size() == 0 && error.startsWith(QStringLiteral("line ")));
        return 0;
    }
    QByteArray const saved = PIO_MetadatasXml::toDocument(records);
    PIO_Metadatas again;
    check(PIO_MetadatasXml::fromDocument(saved, again, &error));
    check(PIO_MetadatasXml::toDocument(again) == saved);
    return 0;
}

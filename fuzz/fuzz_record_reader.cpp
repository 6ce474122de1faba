// Fuzz target of each record's reader, driven through the persistence's collection
// reader: the first byte picks the record keyword, the rest is the content of its
// entry. Whatever is read must save and read back to the same text.
#include "host/persistence/HostPersistence.h"
#include "metadata/KRC_MetadataFactory.h"
#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_PdfOptions.h"
#include "metadata/KRC_ReferenceToolData.h"
#include "metadata/KRC_SceneInfo.h"
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

Keyword const kKeywords[] = {
    { KRC_SceneInfo::kPIO_KRMETA_Keyword, KRC_SceneInfo::kPIO_KRMETA_Version },
    { KRC_PanelInfo::kPIO_KRMETA_Keyword, KRC_PanelInfo::kPIO_KRMETA_Version },
    { KRC_ReferenceToolData::kPIO_KRMETA_Keyword, KRC_ReferenceToolData::kPIO_KRMETA_Version },
    { KRC_PdfOptions::kPIO_KRMETA_Keyword, KRC_PdfOptions::kPIO_KRMETA_Version },
    { KRC_NamingRules::kPIO_KRMETA_Keyword, KRC_NamingRules::kPIO_KRMETA_Version },
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    static KRC_MetadataFactory* const factory = KRC_MetadataFactory::createInstance();
    (void)factory;
    if (size == 0)
        return 0;
    fuzz::quiet();
    Keyword const& picked = kKeywords[data[0] % std::size(kKeywords)];
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

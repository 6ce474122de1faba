// Fuzz target of the record collection reader: any input is either refused with
// the target untouched, or read into records whose saved form reads back and
// saves again to the same text. The storyboard records are registered, so
// their readers and writers are exercised as well as the generic ones.
#include "host/persistence/HostPersistence.h"
#include "metadata/KRC_MetadataFactory.h"

#include <cstdint>
#include <cstdlib>

namespace {

void check(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    static KRC_MetadataFactory* const factory = KRC_MetadataFactory::createInstance();
    (void)factory;
    QByteArray const input(reinterpret_cast<char const*>(data), int(size));
    PIO_Metadatas target;
    auto* existing = new PIO_MetadataInt(QStringLiteral("existing"));
    target.add(existing);

    QString error;
    if (!PIO_MetadatasXml::fromDocument(input, target, &error)) {
        check(target.size() == 1 && *target.begin() == existing);
        check(error.startsWith(QStringLiteral("line ")));
        return 0;
    }

    // What was read must save, and the saved text must be a fixed point.
    QByteArray const saved = PIO_MetadatasXml::toDocument(target);
    PIO_Metadatas again;
    check(PIO_MetadatasXml::fromDocument(saved, again, &error));
    check(again.size() == target.size());
    check(PIO_MetadatasXml::toDocument(again) == saved);
    return 0;
}

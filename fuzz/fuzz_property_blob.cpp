// Fuzz target: the stream loader of properties, as a stored option blob reaches it.
// The first byte picks the kind (0 to 4) and the stream version (12 or 6); the rest is
// the blob. A blob that loads must store and load again under the same name; list and
// range properties may refuse the second time, since a blob can hold bounds that
// contradict each other (a minimum above the maximum), which validation then reports.
#include "properties/KRC_Property.h"
#include "properties/KRC_PropertyFactory.h"

#include <QByteArray>
#include <QDataStream>

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

void dropMessages(QtMsgType, QMessageLogContext const&, QString const&) { }

bool load(KRC_Property& property, QByteArray const& bytes, int version)
{
    QDataStream in(bytes);
    in.setVersion(version);
    return property.load(in);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    qInstallMessageHandler(dropMessages);
    const int kind = data[0] % 5;
    const int version = (data[0] / 5) % 2 ? QDataStream::Qt_3_3 : QDataStream::Qt_4_6;
    const QByteArray blob(reinterpret_cast<const char*>(data + 1), int(size - 1));

    std::unique_ptr<KRC_Property> property(KRC_PropertyFactory::create(kind, QString()));
    if (!load(*property, blob, version))
        return 0;
    property->valueToString();
    property->regenarationScript(QStringLiteral("o"));

    QByteArray again;
    {
        QDataStream out(&again, QIODevice::WriteOnly);
        out.setVersion(version);
        property->store(out);
    }
    std::unique_ptr<KRC_Property> reloaded(KRC_PropertyFactory::create(kind, QString()));
    const bool validated = kind == 1 || kind == 2;
    if (load(*reloaded, again, version) ? reloaded->name() != property->name() : !validated)
        std::abort();
    return 0;
}

// Fuzz target of the name arithmetic on arbitrary strings: the first byte picks the
// counting rule and a step count, the rest is the name (UTF-8). Stepping, base names
// and the split around the numerical part must end, and the split must join back to
// the name.
#include "naming/KRC_NameHelper.h"
#include "support/FuzzCheck.h"

#include <QStringList>

#include <cstdint>
#include <cstdlib>

using fuzz::check;

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    if (size == 0)
        return 0;
    fuzz::quiet();
    int const type = data[0] % 5;
    int const count = int(data[0] / 5) % 9 - 4;
    QString const name = QString::fromUtf8(reinterpret_cast<char const*>(data + 1), int(size - 1));
    KRC_NameHelper::getNextName(name, type);
    KRC_NameHelper::getPrevName(name, type);
    KRC_NameHelper::getBaseName(name, type, count + 4, count);
    for (bool tailOnly : { false, true }) {
        QStringList parts;
        int index = -1;
        int value = 0;
        if (KRC_NameHelper::extractNumericalPart(name, parts, index, value, tailOnly))
            check(parts.join(QString()) == name && index >= 0 && index < parts.size());
    }
    return 0;
}

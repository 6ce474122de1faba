#include "metadata/KRC_MetadataDump.h"

void KRC_MetadataDump::appendLine(QString& out, QVector<Item> const& items)
{
    for (int i = 0; i < items.size(); ++i) {
        const QString format = i + 1 < items.size() ? QStringLiteral("%1=%2, ") : QStringLiteral("%1=%2\n");
        out += format.arg(items[i].first, items[i].second);
    }
}

// Text helpers shared by the records' dumps.
#pragma once

#include <QPair>
#include <QString>
#include <QVector>

/// Dumps are readable lines for logs; numbers follow QString::number (integers in base
/// 10, floating point 'g' with precision 6).
namespace KRC_MetadataDump {

/// One "name=value" item of a dump line.
using Item = QPair<QString, QString>;

/// Appends the items as one line: "%1=%2, " for each item but the last, "%1=%2\n" for
/// the last. No items, no text.
void appendLine(QString& out, QVector<Item> const& items);

} // namespace KRC_MetadataDump

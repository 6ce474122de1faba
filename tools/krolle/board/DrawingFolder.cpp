#include "DrawingFolder.h"

#include "NaturalOrder.h"
#include "ToolError.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>

namespace {

// Why a file cannot be a drawing, or a null string when it can; `size` receives its size.
QString refusal(const QString& path, QSize& size)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead()) {
        const QFileInfo info(path);
        return info.isReadable() ? QStringLiteral("not an image that can be read") : QStringLiteral("cannot be read");
    }
    size = reader.size();
    if (!size.isValid())
        return QStringLiteral("an image whose size cannot be read (%1)").arg(reader.errorString());
    return QString();
}

} // namespace

DrawingFolder DrawingFolder::read(const QString& folder)
{
    const QFileInfo info(folder);
    if (!info.exists())
        throw ToolError::file(QStringLiteral("cannot read %1: no such folder").arg(folder));
    if (!info.isDir())
        throw ToolError::file(QStringLiteral("cannot read %1: not a folder").arg(folder));
    const QDir dir(folder);
    if (!info.isReadable() || !dir.isReadable())
        throw ToolError::file(QStringLiteral("cannot read %1: the folder cannot be listed").arg(folder));
    // Hidden files (a desktop's folder settings, an editor's backups) are no drawings.
    QStringList names = dir.entryList(QDir::Files | QDir::NoDotAndDotDot, QDir::NoSort);
    std::sort(names.begin(), names.end(), &NaturalOrder::less);
    DrawingFolder result;
    for (const QString& name : names) {
        Drawing drawing { dir.filePath(name), name, QSize() };
        const QString why = refusal(drawing.path, drawing.size);
        if (why.isNull())
            result.drawings.append(drawing);
        else
            result.skipped << QStringLiteral("%1: %2, skipped").arg(drawing.path, why);
    }
    return result;
}

#include "DrawingKeys.h"

#include "ToolError.h"

#include "infofields/KRC_InfoFieldImage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

QString DrawingKeys::copyFolder(const QString& projectFile)
{
    const QFileInfo info(projectFile);
    return info.absoluteDir().filePath(info.completeBaseName() + QStringLiteral("_images"));
}

QStringList DrawingKeys::keys(const DrawingFolder& folder, const QString& projectDir, const QString& where)
{
    const QDir project(projectDir);
    const QDir target(where);
    QStringList keys;
    for (const DrawingFolder::Drawing& drawing : folder.drawings)
        keys << project.relativeFilePath(target.absoluteFilePath(drawing.fileName));
    return keys;
}

void DrawingKeys::copy(const DrawingFolder& folder, const QString& where)
{
    if (!QDir().mkpath(where))
        throw ToolError::file(QStringLiteral("cannot make the folder %1").arg(where));
    const QDir target(where);
    for (const DrawingFolder::Drawing& drawing : folder.drawings) {
        const QString copy = target.filePath(drawing.fileName);
        const QFileInfo copyInfo(copy);
        if (copyInfo.exists() && copyInfo.canonicalFilePath() == QFileInfo(drawing.path).canonicalFilePath())
            continue;
        if (copyInfo.exists() && !QFile::remove(copy))
            throw ToolError::file(QStringLiteral("cannot replace %1").arg(copy));
        QFile source(drawing.path);
        if (!source.copy(copy))
            throw ToolError::file(QStringLiteral("cannot copy %1 to %2: %3").arg(drawing.path, copy, source.errorString()));
    }
}

QStringList DrawingKeys::searchFolders(const QString& projectFile, const QString& projectDir)
{
    QStringList folders;
    if (!projectDir.isEmpty())
        folders << projectDir;
    const QString beside = QFileInfo(projectFile).absolutePath();
    if (!folders.contains(beside))
        folders << beside;
    return folders;
}

QString DrawingKeys::find(const QString& key, const QStringList& folders)
{
    for (const QString& folder : folders) {
        const QString file = KRC_InfoFieldImage::fileOf(folder, key);
        if (!file.isNull() && QFileInfo::exists(file))
            return file;
    }
    return QString();
}

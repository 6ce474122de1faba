#include "OutputFile.h"

#include "Console.h"
#include "ToolError.h"

#include <QSaveFile>

void OutputFile::write(const QString& path, const QByteArray& content)
{
    if (isStandardOutput(path)) {
        Console::out(QString::fromUtf8(content));
        return;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        throw ToolError::file(QStringLiteral("cannot write %1: %2").arg(path, file.errorString()));
}

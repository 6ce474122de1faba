#include "Console.h"

#include <QFile>
#include <QJsonDocument>
#include <cstdio>
#include <unistd.h>

namespace {

void write(std::FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
}

} // namespace

void Console::out(const QString& text)
{
    write(stdout, text);
}

bool Console::flushOut()
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

void Console::err(const QString& text)
{
    std::fflush(stdout);
    write(stderr, text);
    std::fflush(stderr);
}

void Console::outJson(const QJsonObject& document)
{
    out(QString::fromUtf8(QJsonDocument(document).toJson(QJsonDocument::Indented)));
}

bool Console::stderrIsTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

QByteArray Console::readIn()
{
    QFile in;
    if (!in.open(stdin, QIODevice::ReadOnly))
        return QByteArray();
    return in.readAll();
}

#include "host/persistence/PO_XmlLimits.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>

namespace {

constexpr qint64 kChunkBytes = 1024 * 1024;

QString tooLong()
{
    return QStringLiteral("an attribute value or a text holds more than %1 bytes")
        .arg(PO_XmlLimits::maxTokenBytes);
}

// Where the last '<' or '>' of `size` bytes stands, or -1.
qint64 lastBracket(char const* data, qint64 size)
{
    auto const at = [data, size](char bracket) {
        void const* found = ::memrchr(data, bracket, size_t(size));
        return found ? static_cast<char const*>(found) - data : qint64(-1);
    };
    return std::max(at('<'), at('>'));
}

// Length of the run of bytes without '<' or '>' that ends the chunk, carried into the
// next one; false if a run passes the limit. An attribute value holds no '<' and
// neither does text, so every token of either kind is such a run. Each window of
// maxTokenBytes + 1 bytes after a bracket must hold one, and the search goes back from
// the window's end to the last one, where the next window starts: a document is
// looked at near the ends of its windows, not byte by byte.
bool scanRuns(char const* data, qint64 size, qint64& run)
{
    qint64 bracket = -1 - run; // the last bracket, in an earlier chunk when negative
    for (;;) {
        qint64 const from = std::max<qint64>(bracket + 1, 0);
        bool const restFits = size - 1 - bracket <= PO_XmlLimits::maxTokenBytes;
        qint64 const end = restFits ? size : bracket + PO_XmlLimits::maxTokenBytes + 2;
        qint64 const found = lastBracket(data + from, end - from);
        if (found >= 0)
            bracket = from + found;
        if (restFits)
            break;
        if (found < 0)
            return false;
    }
    run = size - 1 - bracket;
    return true;
}

bool refuse(QString* error, QString const& message)
{
    if (error)
        *error = message;
    return false;
}

// The file's kind, told before it is opened.
bool isReadableRegularFile(QString const& path, QString* error)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return refuse(error, QString::fromLocal8Bit(std::strerror(errno)));
    if (S_ISDIR(status.st_mode))
        return refuse(error, QStringLiteral("is a directory, not a project file"));
    if (!S_ISREG(status.st_mode))
        return refuse(error, QStringLiteral("is not a regular file (a pipe, socket or device is not read)"));
    if (status.st_size > PO_XmlLimits::maxFileBytes)
        return refuse(error,
            QStringLiteral("holds %1 bytes, more than the %2 a project file may hold")
                .arg(qint64(status.st_size))
                .arg(PO_XmlLimits::maxFileBytes));
    return true;
}

} // namespace

QByteArray PO_XmlLimits::readFile(QString const& path, QString* error)
{
    if (!isReadableRegularFile(path, error))
        return QByteArray();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        refuse(error, file.errorString());
        return QByteArray();
    }
    QByteArray bytes;
    qint64 run = 0;
    while (!file.atEnd()) {
        QByteArray const chunk = file.read(kChunkBytes);
        if (chunk.isEmpty() && file.error() != QFile::NoError) {
            refuse(error, file.errorString());
            return QByteArray();
        }
        if (!scanRuns(chunk.constData(), chunk.size(), run) || bytes.size() + chunk.size() > maxFileBytes) {
            refuse(error, tooLong());
            return QByteArray();
        }
        bytes += chunk;
        if (chunk.isEmpty())
            break;
    }
    return bytes;
}

bool PO_XmlLimits::checkTokenLengths(QByteArray const& document, QString* error)
{
    qint64 run = 0;
    return scanRuns(document.constData(), document.size(), run) || refuse(error, tooLong());
}

bool PO_XmlLimits::checkNoNul(QByteArray const& document, QString* error)
{
    char const* const data = document.constData();
    auto const* nul = static_cast<char const*>(std::memchr(data, 0, size_t(document.size())));
    if (!nul)
        return true;
    char const* lineStart = data;
    int line = 1;
    for (char const* c = data; c < nul; ++c) {
        if (*c == '\n') {
            ++line;
            lineStart = c + 1;
        }
    }
    return refuse(error,
        QStringLiteral("line %1, column %2: a NUL byte, which no XML document may hold")
            .arg(line)
            .arg(nul - lineStart + 1));
}

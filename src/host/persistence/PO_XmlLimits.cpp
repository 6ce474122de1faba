#include "host/persistence/PO_XmlLimits.h"

#include <QFile>
#include <QXmlStreamReader>

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

// Length of the run of bytes without '<' or '>' that ends the chunk, carried into the
// next one; false as soon as a run passes the limit. An attribute value holds no '<'
// and neither does text, so every token of either kind is such a run.
bool scanRuns(char const* data, qint64 size, qint64& run)
{
    for (qint64 i = 0; i < size; ++i) {
        char const c = data[i];
        if (c == '<' || c == '>')
            run = 0;
        else if (++run > PO_XmlLimits::maxTokenBytes)
            return false;
    }
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

QString located(QXmlStreamReader const& xml, QString const& message)
{
    return QStringLiteral("line %1, column %2: %3")
        .arg(xml.lineNumber())
        .arg(xml.columnNumber())
        .arg(message);
}

// What the token at which `xml` stands breaks, or a null string.
QString tokenProblem(QXmlStreamReader const& xml, int depth, qint64 elements)
{
    switch (xml.tokenType()) {
    case QXmlStreamReader::DTD:
        return QStringLiteral("document type declarations are not accepted");
    case QXmlStreamReader::EntityReference:
        return QStringLiteral("entity reference '&%1;' is not accepted").arg(xml.name().toString());
    case QXmlStreamReader::StartElement:
        if (depth > PO_XmlLimits::maxDepth)
            return QStringLiteral("elements nest deeper than %1").arg(PO_XmlLimits::maxDepth);
        if (elements > PO_XmlLimits::maxElements)
            return QStringLiteral("the document holds more than %1 elements").arg(PO_XmlLimits::maxElements);
        if (xml.attributes().size() > PO_XmlLimits::maxAttributes)
            return QStringLiteral("an element has more than %1 attributes").arg(PO_XmlLimits::maxAttributes);
        return QString();
    default:
        return QString();
    }
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

bool PO_XmlLimits::check(QByteArray const& document, QString* error, ElementCheck const& extra)
{
    qint64 run = 0;
    if (!scanRuns(document.constData(), document.size(), run))
        return refuse(error, tooLong());
    QXmlStreamReader xml(document);
    int depth = 0;
    qint64 elements = 0;
    while (!xml.atEnd()) {
        QXmlStreamReader::TokenType const token = xml.readNext();
        if (token == QXmlStreamReader::StartElement) {
            ++depth;
            ++elements;
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
        }
        QString problem = tokenProblem(xml, depth, elements);
        if (problem.isNull() && extra && token == QXmlStreamReader::StartElement)
            problem = extra(xml, depth);
        if (!problem.isNull())
            return refuse(error, located(xml, problem));
    }
    // Syntax errors are left to the reader proper, which names them in its own words.
    return true;
}

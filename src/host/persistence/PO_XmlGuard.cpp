#include "host/persistence/PO_XmlGuard.h"

#include "host/persistence/PO_XmlLimits.h"

namespace {

QString located(QXmlStreamReader const& xml, QString const& message)
{
    return QStringLiteral("line %1, column %2: %3")
        .arg(xml.lineNumber())
        .arg(xml.columnNumber())
        .arg(message);
}

// The encodings a document may declare. Every document is written in UTF-8; others
// would be decoded by codecs that can make text no writer carries back (UTF-7 gives
// unpaired surrogates), so they are refused before any of the content is decoded.
bool isReadableEncoding(QStringRef const& declared)
{
    for (char const* name : { "UTF-8", "US-ASCII", "ISO-8859-1" }) {
        if (declared.compare(QLatin1String(name), Qt::CaseInsensitive) == 0)
            return true;
    }
    return declared.isEmpty();
}

// What the token at which `xml` stands breaks, or a null string.
QString tokenProblem(QXmlStreamReader const& xml, int depth, qint64 elements)
{
    switch (xml.tokenType()) {
    case QXmlStreamReader::StartDocument:
        if (!isReadableEncoding(xml.documentEncoding()))
            return QStringLiteral("the document is declared in \"%1\"; it is read in UTF-8 only")
                .arg(xml.documentEncoding().toString());
        return QString();
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

struct PO_XmlGuard::Private
{
    Private(QByteArray const& document, ElementCheck&& check)
        : xml(document)
        , extra(std::move(check))
    {
    }

    QXmlStreamReader xml;
    ElementCheck const extra;
    int depth = 0;
    qint64 elements = 0;
    QString refusal; // the limits' sentence, once a token broke one
    QString readerFault; // the reader's own, once it stopped

    bool stopped() const { return !refusal.isNull() || !readerFault.isNull(); }
    QXmlStreamReader::TokenType advance();
    void refuse(QString const& sentence)
    {
        refusal = sentence;
        // The stream stops too, so that what the reader sees of it agrees.
        xml.raiseError(sentence);
    }
};

// The next token of the stream once it keeps the limits; Invalid on a breach.
QXmlStreamReader::TokenType PO_XmlGuard::Private::advance()
{
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
    if (problem.isNull())
        return token;
    refuse(located(xml, problem));
    return QXmlStreamReader::Invalid;
}

PO_XmlGuard::PO_XmlGuard(QByteArray const& document, ElementCheck extra)
    : d(std::make_unique<Private>(document, std::move(extra)))
{
    // Bytes first: no token is parsed whole before its length is known to fit, and no
    // NUL reaches the parser.
    QString bad;
    if (!PO_XmlLimits::checkTokenLengths(document, &bad) || !PO_XmlLimits::checkNoNul(document, &bad))
        d->refuse(bad);
}

PO_XmlGuard::~PO_XmlGuard() = default;

QXmlStreamReader const& PO_XmlGuard::stream() const
{
    return d->xml;
}

QXmlStreamReader::TokenType PO_XmlGuard::readNext()
{
    return d->stopped() ? QXmlStreamReader::Invalid : d->advance();
}

bool PO_XmlGuard::readNextStartElement()
{
    for (;;) {
        switch (readNext()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndElement:
        case QXmlStreamReader::Invalid:
            return false;
        default:
            break;
        }
    }
}

void PO_XmlGuard::skipCurrentElement()
{
    for (int depth = 1; depth > 0;) {
        QXmlStreamReader::TokenType const token = readNext();
        if (token == QXmlStreamReader::Invalid)
            return;
        if (token == QXmlStreamReader::StartElement)
            ++depth;
        else if (token == QXmlStreamReader::EndElement)
            --depth;
    }
}

bool PO_XmlGuard::atEnd() const
{
    return d->stopped() || d->xml.atEnd();
}

bool PO_XmlGuard::hasError() const
{
    return d->stopped() || d->xml.hasError();
}

QString PO_XmlGuard::errorString() const
{
    if (!d->readerFault.isNull() && d->refusal.isNull())
        return d->readerFault;
    return d->xml.errorString();
}

void PO_XmlGuard::raiseError(QString const& message)
{
    if (!d->stopped())
        d->readerFault = message.isNull() ? QStringLiteral("") : message;
}

QString PO_XmlGuard::refusal()
{
    // What the reader left unread is walked, building nothing, so that the answer does
    // not depend on where the reader gave up; a syntax error ends the walk, as it ends
    // any reading.
    while (d->refusal.isNull() && !d->xml.atEnd())
        d->advance();
    return d->refusal;
}

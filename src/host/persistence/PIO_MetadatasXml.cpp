#include "host/persistence/PIO_MetadatasXml.h"

#include "host/persistence/PIO_Metadata.h"
#include "host/persistence/PIO_MetadataFactory.h"
#include "host/persistence/PIO_MetadataUnknown.h"
#include "host/persistence/PIO_Metadatas.h"
#include "host/persistence/PIO_ReadingContext.h"
#include "host/persistence/PIO_WritingContext.h"
#include "host/persistence/PIO_XML_ComponentReader.h"
#include "host/persistence/PO_XmlGuard.h"
#include "host/persistence/PO_XmlWriter.h"

#include <QXmlAttributes>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <memory>
#include <vector>

QString const PIO_MetadatasXml::collectionElement = QStringLiteral("metadatas");
QString const PIO_MetadatasXml::entryElement = QStringLiteral("metadata");

namespace {

QString const typeAttribute = QStringLiteral("type");
QString const nameAttribute = QStringLiteral("name");
QString const creatorAttribute = QStringLiteral("creator");
QString const versionAttribute = QStringLiteral("version");
QString const forDragFlag = QStringLiteral("for_drag");

using RecordList = std::vector<std::unique_ptr<PIO_Metadata>>;
using ReaderPtr = UT_SharedPtr<PIO_XML::ComponentReader>;

// Thrown inside this file only, to leave a read from any depth; caught in `read`.
struct ReadError
{
    QString message;
};

[[noreturn]] void fail(QString const& message)
{
    throw ReadError { message };
}

void writeIdentity(PO_XmlWriter& writer, QString const& attribute, QString const& value)
{
    if (!value.isNull())
        writer.encodeStringAttr(attribute, value);
}

// An attribute that is there reads as a non-null string, even when empty.
QString optionalAttribute(QXmlStreamAttributes const& attributes, QString const& name)
{
    if (!attributes.hasAttribute(name))
        return QString();
    QString value = attributes.value(name).toString();
    return value.isNull() ? QString(QLatin1String("")) : value;
}

// The readers speak SAX; namespace declarations go along as plain attributes so that
// a reader keeping the XML can write it back well-formed.
QXmlAttributes saxAttributes(QXmlStreamReader const& stream)
{
    QXmlAttributes result;
    for (QXmlStreamNamespaceDeclaration const& ns : stream.namespaceDeclarations()) {
        QString const name
            = ns.prefix().isEmpty() ? QStringLiteral("xmlns") : QLatin1String("xmlns:") + ns.prefix();
        result.append(name, QString(), name, ns.namespaceUri().toString());
    }
    for (QXmlStreamAttribute const& attribute : stream.attributes()) {
        // Most attributes have no prefix: one string then serves as both names.
        QString const qualified = attribute.qualifiedName().toString();
        QString const local = attribute.prefix().isEmpty() ? qualified : attribute.name().toString();
        result.append(qualified, attribute.namespaceUri().toString(), local, attribute.value().toString());
    }
    return result;
}

// Next token that matters (the guard has refused what this format never holds).
QXmlStreamReader::TokenType nextToken(PO_XmlGuard& guard)
{
    QXmlStreamReader const& stream = guard.stream();
    for (;;) {
        switch (guard.readNext()) {
        case QXmlStreamReader::Invalid:
            fail(guard.errorString());
        case QXmlStreamReader::Comment:
        case QXmlStreamReader::ProcessingInstruction:
            continue;
        default:
            return stream.tokenType();
        }
    }
}

bool isText(QXmlStreamReader const& stream)
{
    return stream.isCharacters() && (stream.isCDATA() || !stream.isWhitespace());
}

// Which reader saw an element's start, and which one receives its content.
struct ElementFrame
{
    ReaderPtr handler;
    ReaderPtr content;
};

void feedEntryContent(PO_XmlGuard& guard, PIO_Metadata* meta)
{
    QXmlStreamReader const& stream = guard.stream();
    PIO_ReadingContext context(stream, meta);
    ReaderPtr const root(meta->componentReader());
    std::vector<ElementFrame> open;
    for (;;) {
        QXmlStreamReader::TokenType const token = nextToken(guard);
        ReaderPtr const current = open.empty() ? root : open.back().content;
        QString const name = stream.qualifiedName().toString();
        if (token == QXmlStreamReader::StartElement) {
            ReaderPtr const child
                = current ? current->handleStartElement(context, name, saxAttributes(stream)) : ReaderPtr();
            open.push_back({ current, child });
        } else if (token == QXmlStreamReader::EndElement) {
            if (open.empty())
                return;
            ReaderPtr const handler = open.back().handler;
            open.pop_back();
            if (handler && !handler->handleEndElement(context, name))
                fail(
                    QStringLiteral("the reader of '%1' refused the end of <%2>").arg(meta->metaType(), name));
        } else if (isText(stream)) {
            if (current && !current->handleCDATA(stream.text().toString()))
                fail(QStringLiteral("the reader of '%1' refused text").arg(meta->metaType()));
        }
    }
}

std::unique_ptr<PIO_Metadata> readEntry(PO_XmlGuard& guard)
{
    QXmlStreamAttributes const attributes = guard.stream().attributes();
    QString const type = attributes.value(typeAttribute).toString();
    if (type.isEmpty())
        fail(QStringLiteral("<%1> without a \"%2\" attribute")
                 .arg(PIO_MetadatasXml::entryElement, typeAttribute));
    QString const name = optionalAttribute(attributes, nameAttribute);
    QString const creator = optionalAttribute(attributes, creatorAttribute);
    QString const version = optionalAttribute(attributes, versionAttribute);

    std::unique_ptr<PIO_Metadata> meta(
        PIO_MetadataFactory::instance()->createMeta(type, name, creator, version));
    if (!meta)
        meta.reset(new PIO_MetadataUnknown(type, name, creator, version));
    feedEntryContent(guard, meta.get());
    return meta;
}

RecordList readCollection(PO_XmlGuard& guard)
{
    QXmlStreamReader const& stream = guard.stream();
    if (!stream.isStartElement() || stream.qualifiedName() != PIO_MetadatasXml::collectionElement)
        fail(QStringLiteral("expected <%1>").arg(PIO_MetadatasXml::collectionElement));
    RecordList records;
    for (;;) {
        QXmlStreamReader::TokenType const token = nextToken(guard);
        if (token == QXmlStreamReader::EndElement)
            return records;
        if (token == QXmlStreamReader::StartElement
            && stream.qualifiedName() == PIO_MetadatasXml::entryElement)
            records.push_back(readEntry(guard));
        else if (token == QXmlStreamReader::StartElement)
            fail(QStringLiteral("unexpected element <%1>").arg(stream.qualifiedName().toString()));
        else if (isText(stream))
            fail(QStringLiteral("unexpected text in <%1>").arg(PIO_MetadatasXml::collectionElement));
    }
}

QString located(QXmlStreamReader const& stream, QString const& message)
{
    return QStringLiteral("line %1, column %2: %3")
        .arg(stream.lineNumber())
        .arg(stream.columnNumber())
        .arg(message);
}

void moveInto(RecordList& records, PIO_Metadatas& target)
{
    for (std::unique_ptr<PIO_Metadata>& meta : records)
        target.add(meta.release());
}

// Runs `step` over the stream; a ReadError becomes a false with its located message,
// and an error on the stream.
template <class Step> bool guarded(PO_XmlGuard& guard, QString* errorMessage, Step step)
{
    try {
        step();
        return true;
    } catch (ReadError const& error) {
        QString const message = located(guard.stream(), error.message);
        if (errorMessage)
            *errorMessage = message;
        // The caller's own loop over the stream stops too.
        if (!guard.hasError())
            guard.raiseError(message);
        return false;
    }
}

void skipProlog(PO_XmlGuard& guard)
{
    while (nextToken(guard) != QXmlStreamReader::StartElement) {
        if (guard.stream().isEndDocument() || isText(guard.stream()))
            fail(QStringLiteral("expected <%1>").arg(PIO_MetadatasXml::collectionElement));
    }
}

void expectEndOfDocument(PO_XmlGuard& guard)
{
    while (nextToken(guard) != QXmlStreamReader::EndDocument) {
        if (guard.stream().isStartElement() || isText(guard.stream()))
            fail(QStringLiteral("content after </%1>").arg(PIO_MetadatasXml::collectionElement));
    }
}

} // namespace

void PIO_MetadatasXml::write(PIO_Metadatas const& metas, PIO_WritingContext& context)
{
    PO_XmlWriter& writer = context.writer();
    writer.beginElement(collectionElement);
    for (PIO_Metadata const* meta : metas)
        writeEntry(*meta, context);
    writer.endElement();
}

void PIO_MetadatasXml::writeEntry(PIO_Metadata const& meta, PIO_WritingContext& context)
{
    PO_XmlWriter& writer = context.writer();
    writer.beginElement(entryElement);
    writer.encodeStringAttr(typeAttribute, meta.metaType());
    writeIdentity(writer, nameAttribute, meta.metaName());
    writeIdentity(writer, creatorAttribute, meta.creator());
    writeIdentity(writer, versionAttribute, meta.version());
    meta.writeMetadataSubnodes(context);
    writer.endElement();
}

bool PIO_MetadatasXml::read(PO_XmlGuard& guard, PIO_Metadatas& target, QString* errorMessage)
{
    RecordList records;
    if (!guarded(guard, errorMessage, [&] { records = readCollection(guard); }))
        return false;
    moveInto(records, target);
    return true;
}

QByteArray PIO_MetadatasXml::toDocument(PIO_Metadatas const& metas, bool forDrag)
{
    QByteArray document;
    QXmlStreamWriter stream(&document);
    stream.setAutoFormatting(true);
    stream.writeStartDocument();
    PO_XmlWriter writer(stream);
    PIO_WritingContext context(writer);
    context.SetAttribute(forDragFlag, forDrag);
    write(metas, context);
    stream.writeEndDocument();
    return stream.hasError() ? QByteArray() : document;
}

bool PIO_MetadatasXml::fromDocument(QByteArray const& document, PIO_Metadatas& target, QString* errorMessage)
{
    PO_XmlGuard guard(document);
    RecordList records;
    QString fault;
    bool const ok = guarded(guard, &fault, [&] {
        skipProlog(guard);
        records = readCollection(guard);
        expectEndOfDocument(guard);
    });
    // A broken limit anywhere outranks a fault met before it.
    QString const refusal = guard.refusal();
    if (ok && refusal.isNull()) {
        moveInto(records, target);
        return true;
    }
    if (errorMessage)
        *errorMessage = refusal.isNull() ? fault : refusal;
    return false;
}

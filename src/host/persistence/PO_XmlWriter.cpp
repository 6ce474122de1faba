#include "host/persistence/PO_XmlWriter.h"

#include "host/persistence/PO_Utils.h"

#include <QXmlStreamWriter>
#include <QtGlobal>

#include <algorithm>

class PO_XmlWriter::PO_XmlWriterPrivate
{
public:
    explicit PO_XmlWriterPrivate(QXmlStreamWriter& stream)
        : stream(stream)
    {
    }

    void writeAttribute(QString const& name, QString const& value)
    {
        if (!inStartTag) {
            qWarning("PO_XmlWriter: attribute '%s' comes after the content of its element; dropped",
                qPrintable(name));
            return;
        }
        stream.writeAttribute(name, PO_Utils::xmlSafe(value));
    }

    QXmlStreamWriter& stream;
    int depth = 0;
    bool inStartTag = false;
};

PO_XmlWriter::PO_XmlWriter(QXmlStreamWriter& stream)
    : d(new PO_XmlWriterPrivate(stream))
{
}

PO_XmlWriter::~PO_XmlWriter()
{
    delete d;
}

void PO_XmlWriter::beginElement(QString const& name)
{
    d->stream.writeStartElement(name);
    ++d->depth;
    d->inStartTag = true;
}

void PO_XmlWriter::endElement()
{
    if (d->depth == 0) {
        qWarning("PO_XmlWriter: endElement without an open element; ignored");
        return;
    }
    d->stream.writeEndElement();
    --d->depth;
    d->inStartTag = false;
}

void PO_XmlWriter::encodeStringAttr(QString const& name, QString const& value)
{
    d->writeAttribute(name, value);
}

void PO_XmlWriter::encodeIntAttr(QString const& name, int value)
{
    d->writeAttribute(name, QString::number(value));
}

void PO_XmlWriter::encodeDoubleAttr(QString const& name, double value)
{
    d->writeAttribute(name, PO_Utils::doubleToString(value));
}

void PO_XmlWriter::encodeBoolAttr(QString const& name, bool value)
{
    d->writeAttribute(name, PO_Utils::boolToString(value));
}

void PO_XmlWriter::encodeBinaryElement(
    QString const& elementName, QString const& attributeName, unsigned char const* data, int length)
{
    beginElement(elementName);
    d->writeAttribute(attributeName, PO_Utils::binaryToString(data, length));
    endElement();
}

void PO_XmlWriter::writeCharacters(QString const& text)
{
    // A reader folds a raw carriage return into a line feed, and takes text of
    // white space alone for layout: such characters go out as references, which
    // read back as the text they stand for.
    QString const safe = PO_Utils::xmlSafe(text);
    auto const isXmlSpace = [](QChar c) {
        return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
    };
    bool const allSpace = std::all_of(safe.begin(), safe.end(), isXmlSpace);
    int runStart = 0;
    for (int i = 0; i <= safe.size(); ++i) {
        bool const atEnd = i == safe.size();
        if (!atEnd && !allSpace && safe.at(i) != QLatin1Char('\r'))
            continue;
        if (i > runStart)
            d->stream.writeCharacters(safe.mid(runStart, i - runStart));
        if (!atEnd)
            d->stream.writeEntityReference(QStringLiteral("#%1").arg(safe.at(i).unicode()));
        runStart = i + 1;
    }
    d->inStartTag = false;
}

int PO_XmlWriter::depth() const
{
    return d->depth;
}

QXmlStreamWriter& PO_XmlWriter::stream()
{
    return d->stream;
}

// Element-and-attribute XML writer of the stand-in persistence library.
#pragma once

#include <QString>

class QXmlStreamWriter;

/// Writes records as XML onto a QXmlStreamWriter owned by the caller (so a project
/// file writer can hand its own stream to the records).
///
/// Attributes belong to the element opened last and must come before its first child
/// or text: an attribute written later would corrupt the document, so it is dropped
/// with a warning. Text is cleaned of characters that XML 1.0 cannot hold (they become
/// U+FFFD), so the output always parses. Values take the text forms of PO_Utils.
/// Threading: the thread that owns the stream.
class PO_XmlWriter
{
public:
    explicit PO_XmlWriter(QXmlStreamWriter& stream);
    ~PO_XmlWriter();
    PO_XmlWriter(PO_XmlWriter const&) = delete;
    PO_XmlWriter& operator=(PO_XmlWriter const&) = delete;

    void beginElement(QString const& name);
    /// Closes the element opened last; ignored (with a warning) when none is open.
    void endElement();

    void encodeStringAttr(QString const& name, QString const& value);
    void encodeIntAttr(QString const& name, int value);
    void encodeDoubleAttr(QString const& name, double value);
    void encodeBoolAttr(QString const& name, bool value);
    /// A child element `elementName` holding `length` bytes in base64 in `attributeName`,
    /// read back by PIO_XML::ComponentReader::getBinaryStreamFromAttribute.
    void encodeBinaryElement(
        QString const& elementName, QString const& attributeName, unsigned char const* data, int length);
    /// Character data inside the open element.
    void writeCharacters(QString const& text);

    /// Number of elements opened through this writer and not yet closed.
    int depth() const;
    QXmlStreamWriter& stream();

private:
    class PO_XmlWriterPrivate;
    PO_XmlWriterPrivate* d;
};

// Base of the readers that fill a record from its XML.
#pragma once

#include "host/base/UT_ShareBase.h"
#include "host/base/UT_SharedPtr.h"

#include <QString>

class DB_MemFile;
class PIO_ReadingContext;
class QXmlAttributes;

namespace PIO_XML {

/// Receives the XML of one record, element by element, from the collection reader.
///
/// Reference counted (count 0 when made): the collection reader holds it in a
/// UT_SharedPtr. For each element inside the entry, `handleStartElement` is called on
/// the reader that receives the enclosing element's content; the reader it returns
/// receives this element's content (return `this` for a flat reader; a null reader
/// skips the element's content: the record keeps what it has). `handleEndElement` goes
/// to the reader whose `handleStartElement` saw the matching start, and
/// `handleCDATA` to the reader of the enclosing content (text that is only white space
/// outside CDATA sections is not delivered). A false from either ends the whole read
/// with an error. The defaults accept everything and return `this`.
/// Threading: the thread of the read.
class ComponentReader : public UT_ShareBase
{
public:
    ComponentReader();
    ~ComponentReader() override;

    virtual UT_SharedPtr<ComponentReader> handleStartElement(
        PIO_ReadingContext& context, QString const& elementName, QXmlAttributes const& attributes);
    virtual bool handleEndElement(PIO_ReadingContext& context, QString const& elementName);
    virtual bool handleCDATA(QString const& text);

    /// Decodes the binary attribute `attributeName` (as PO_XmlWriter::encodeBinaryElement
    /// writes it) into `file`, replacing its content. False, with `file` untouched,
    /// when the attribute is missing or is not valid base64.
    static bool getBinaryStreamFromAttribute(
        DB_MemFile& file, QString const& attributeName, QXmlAttributes const& attributes);
};

} // namespace PIO_XML

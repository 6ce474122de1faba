#include "host/persistence/PIO_XML_ComponentReader.h"

#include "host/persistence/DB_MemFile.h"
#include "host/persistence/PO_Utils.h"

#include <QXmlAttributes>

namespace PIO_XML {

ComponentReader::ComponentReader() = default;

ComponentReader::~ComponentReader() = default;

UT_SharedPtr<ComponentReader> ComponentReader::handleStartElement(
    PIO_ReadingContext&, QString const&, QXmlAttributes const&)
{
    return UT_SharedPtr<ComponentReader>(this);
}

bool ComponentReader::handleEndElement(PIO_ReadingContext&, QString const&)
{
    return true;
}

bool ComponentReader::handleCDATA(QString const&)
{
    return true;
}

bool ComponentReader::getBinaryStreamFromAttribute(
    DB_MemFile& file, QString const& attributeName, QXmlAttributes const& attributes)
{
    int const index = attributes.index(attributeName);
    if (index < 0)
        return false;
    QByteArray bytes;
    if (!PO_Utils::parseBinaryAttr(attributes.value(index), bytes))
        return false;
    file.Clear();
    file.Write(bytes.constData(), bytes.size());
    return true;
}

} // namespace PIO_XML

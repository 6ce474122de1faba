#include "infofields/InfoFieldRecordReader.h"

#include "infofields/InfoFieldFormat.h"

InfoFieldRecordReader::InfoFieldRecordReader(PIO_Metadata* record)
    : KRC_MetadataReader(record, Release::AtOwnEnd)
{
}

UT_SharedPtr<PIO_XML::ComponentReader> InfoFieldRecordReader::handleStartElement(
    PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes)
{
    if (record() && elementName == InfoFieldFormat::kField)
        readField(attributes);
    return self();
}

bool InfoFieldRecordReader::readId(QXmlAttributes const& attributes, int& id)
{
    return checkedInt(attributes, InfoFieldFormat::kId, id);
}

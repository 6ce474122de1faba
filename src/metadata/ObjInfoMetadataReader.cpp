#include "metadata/ObjInfoMetadataReader.h"

KRC_ObjInfo::NameAttributes const ObjInfoMetadataReader::kName { QStringLiteral("name"),
    QStringLiteral("nameFlag") };

ObjInfoMetadataReader::ObjInfoMetadataReader(KRC_ObjInfo* record)
    : KRC_MetadataReader(record, Release::AtFirstEnd)
{
}

KRC_ObjectName ObjInfoMetadataReader::readName(
    QXmlAttributes const& xml, KRC_ObjInfo::NameAttributes const& attributes)
{
    KRC_ObjectName name;
    name.setValue(text(xml, attributes.value));
    name.setFlag(uncheckedInt(xml, attributes.flag));
    return name;
}

#include "metadata/SceneInfoMetadataReader.h"

KRC_ObjInfo::NameAttributes const SceneInfoMetadataReader::kSequenceName { QStringLiteral("sequenceName"),
    QStringLiteral("sequenceNameFlag") };
KRC_ObjInfo::NameAttributes const SceneInfoMetadataReader::kActName { QStringLiteral("actName"),
    QStringLiteral("actNameFlag") };

UT_SharedPtr<PIO_XML::ComponentReader> SceneInfoMetadataReader::handleStartElement(
    PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes)
{
    if (KRC_SceneInfo* info = recordForElement<KRC_SceneInfo>(elementName)) {
        const KRC_ObjectName name = readName(attributes, kName);
        const KRC_ObjectName sequenceName = readName(attributes, kSequenceName);
        const KRC_ObjectName actName = readName(attributes, kActName);
        info->name() = name;
        info->sequenceName() = sequenceName;
        info->actName() = actName;
    }
    return self();
}

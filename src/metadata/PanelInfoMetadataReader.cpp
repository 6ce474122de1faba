#include "metadata/PanelInfoMetadataReader.h"

QString const PanelInfoMetadataReader::kExportFlag = QStringLiteral("exportFlag");

UT_SharedPtr<PIO_XML::ComponentReader> PanelInfoMetadataReader::handleStartElement(
    PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes)
{
    if (KRC_PanelInfo* info = recordForElement<KRC_PanelInfo>(elementName)) {
        const KRC_ObjectName name = readName(attributes, kName);
        const int exportFlag = uncheckedInt(attributes, kExportFlag);
        info->name() = name;
        info->setExportFlag(exportFlag);
    }
    return self();
}

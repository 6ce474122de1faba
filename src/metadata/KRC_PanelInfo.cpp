#include "metadata/KRC_PanelInfo.h"

#include "metadata/KRC_MetadataRecordImpl.h"
#include "metadata/PanelInfoMetadataReader.h"

class KRC_PanelInfoPrivate
{
public:
    int exportFlag = KRC_PanelInfo::kDefaultExportFlag;
};

template class KRC_MetadataRecord<KRC_PanelInfo, KRC_PanelInfoPrivate, KRC_ObjInfo>;

QString const KRC_PanelInfo::kPIO_KRMETA_Keyword = QStringLiteral("panelInfo");
QString const KRC_PanelInfo::kPIO_KRMETA_Version = QStringLiteral("1.0");

bool KRC_PanelInfo::isValid() const
{
    return hasUsableName();
}

PIO_XML::ComponentReader* KRC_PanelInfo::componentReader()
{
    return KRC_MetadataReader::create<PanelInfoMetadataReader>(this);
}

PIO_Metadata* KRC_PanelInfo::clone() const
{
    return cloneKeepingIdentity();
}

void KRC_PanelInfo::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    QVector<KRC_MetadataDump::Item> items;
    addNameItems(items, PanelInfoMetadataReader::kName, name());
    items.append({ PanelInfoMetadataReader::kExportFlag, QString::number(exportFlag()) });
    KRC_MetadataDump::appendLine(out, items);
}

void KRC_PanelInfo::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    writeRecordElement(context, [this](PO_XmlWriter& writer) {
        writeName(writer, PanelInfoMetadataReader::kName, name());
        writer.encodeIntAttr(PanelInfoMetadataReader::kExportFlag, exportFlag());
    });
}

int KRC_PanelInfo::exportFlag() const
{
    return priv().exportFlag;
}

int KRC_PanelInfo::setExportFlag(int exportFlag)
{
    const int previous = priv().exportFlag;
    priv().exportFlag = exportFlag;
    return previous;
}

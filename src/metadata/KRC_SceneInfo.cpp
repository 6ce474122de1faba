#include "metadata/KRC_SceneInfo.h"

#include "metadata/KRC_MetadataRecordImpl.h"
#include "metadata/SceneInfoMetadataReader.h"

class KRC_SceneInfoPrivate
{
public:
    KRC_ObjectName sequenceName;
    KRC_ObjectName actName;
};

template class KRC_MetadataRecord<KRC_SceneInfo, KRC_SceneInfoPrivate, KRC_ObjInfo>;

QString const KRC_SceneInfo::kPIO_KRMETA_Keyword = QStringLiteral("sceneInfo");
QString const KRC_SceneInfo::kPIO_KRMETA_Version = QStringLiteral("1.0");

KRC_SceneInfo::KRC_SceneInfo()
{
    markNameCustom();
}

KRC_SceneInfo::KRC_SceneInfo(QString const& name)
    : KRC_MetadataRecord(name)
{
    markNameCustom();
}

KRC_SceneInfo::KRC_SceneInfo(QString const& name, QString const& creator, QString const& version)
    : KRC_MetadataRecord(name, creator, version)
{
    markNameCustom();
}

// A shot's name is the user's from the start, unlike a panel's.
void KRC_SceneInfo::markNameCustom()
{
    name().setFlag(KRC_ObjectName::kCustom);
}

bool KRC_SceneInfo::isValid() const
{
    return hasUsableName();
}

PIO_XML::ComponentReader* KRC_SceneInfo::componentReader()
{
    return KRC_MetadataReader::create<SceneInfoMetadataReader>(this);
}

PIO_Metadata* KRC_SceneInfo::clone() const
{
    return cloneKeepingIdentity();
}

void KRC_SceneInfo::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    QVector<KRC_MetadataDump::Item> items;
    addNameItems(items, SceneInfoMetadataReader::kName, name());
    addNameItems(items, SceneInfoMetadataReader::kSequenceName, sequenceName());
    addNameItems(items, SceneInfoMetadataReader::kActName, actName());
    KRC_MetadataDump::appendLine(out, items);
}

void KRC_SceneInfo::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    writeRecordElement(context, [this](PO_XmlWriter& writer) {
        writeName(writer, SceneInfoMetadataReader::kName, name());
        writeName(writer, SceneInfoMetadataReader::kSequenceName, sequenceName());
        writeName(writer, SceneInfoMetadataReader::kActName, actName());
    });
}

KRC_ObjectName& KRC_SceneInfo::sequenceName()
{
    return priv().sequenceName;
}

KRC_ObjectName const& KRC_SceneInfo::sequenceName() const
{
    return priv().sequenceName;
}

KRC_ObjectName& KRC_SceneInfo::actName()
{
    return priv().actName;
}

KRC_ObjectName const& KRC_SceneInfo::actName() const
{
    return priv().actName;
}

bool KRC_SceneInfo::canModifySequenceName() const
{
    return !priv().sequenceName.isLocked();
}

bool KRC_SceneInfo::canModifyActName() const
{
    return !priv().actName.isLocked();
}

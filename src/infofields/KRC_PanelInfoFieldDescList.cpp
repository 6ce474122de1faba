#include "infofields/KRC_PanelInfoFieldDescList.h"

#include "metadata/KRC_MetadataRecordImpl.h"

/// Nothing of its own: the entries live in the list base.
class KRC_PanelInfoFieldDescListPrivate
{
};

template class KRC_MetadataRecord<KRC_PanelInfoFieldDescList, KRC_PanelInfoFieldDescListPrivate, KRC_InfoFieldDescList>;

QString const KRC_PanelInfoFieldDescList::kPIO_KRMETA_Keyword = QStringLiteral("scenePanelInfoFieldList");
QString const KRC_PanelInfoFieldDescList::kPIO_KRMETA_Version = QStringLiteral("1.0");

PIO_Metadata* KRC_PanelInfoFieldDescList::clone() const
{
    return cloneKeepingIdentity();
}

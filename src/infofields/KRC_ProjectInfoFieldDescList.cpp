#include "infofields/KRC_ProjectInfoFieldDescList.h"

#include "metadata/KRC_MetadataRecordImpl.h"

/// Nothing of its own: the entries live in the list base.
class KRC_ProjectInfoFieldDescListPrivate
{
};

template class KRC_MetadataRecord<KRC_ProjectInfoFieldDescList, KRC_ProjectInfoFieldDescListPrivate, KRC_InfoFieldDescList>;

QString const KRC_ProjectInfoFieldDescList::kPIO_KRMETA_Keyword = QStringLiteral("projectPanelInfoFieldList");
QString const KRC_ProjectInfoFieldDescList::kPIO_KRMETA_Version = QStringLiteral("1.0");

PIO_Metadata* KRC_ProjectInfoFieldDescList::clone() const
{
    return cloneKeepingIdentity();
}

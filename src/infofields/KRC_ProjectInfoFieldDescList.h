// The record of the definitions of the project's own fields.
#pragma once

#include "infofields/KRC_InfoFieldDescList.h"
#include "metadata/KRC_MetadataRecord.h"

class KRC_ProjectInfoFieldDescListPrivate;

/// The definitions of the project's own fields, one record in the project's metadata. Keyword
/// "projectPanelInfoFieldList", version "1.0"; list operations, XML and dump as
/// KRC_InfoFieldDescList says. `clone()` keeps the source's identity. Threading: the
/// host's thread.
class KRC_ProjectInfoFieldDescList
    : public KRC_MetadataRecord<KRC_ProjectInfoFieldDescList, KRC_ProjectInfoFieldDescListPrivate, KRC_InfoFieldDescList>
{
public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;

    using KRC_MetadataRecord::KRC_MetadataRecord;

    PIO_Metadata* clone() const override;
};

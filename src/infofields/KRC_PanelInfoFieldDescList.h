// The record of the definitions of the fields that every panel carries.
#pragma once

#include "infofields/KRC_InfoFieldDescList.h"
#include "metadata/KRC_MetadataRecord.h"

class KRC_PanelInfoFieldDescListPrivate;

/// The definitions of the fields that every panel carries, one record in the project's metadata. Keyword
/// "scenePanelInfoFieldList", version "1.0"; list operations, XML and dump as
/// KRC_InfoFieldDescList says. `clone()` keeps the source's identity. Threading: the
/// host's thread.
class KRC_PanelInfoFieldDescList
    : public KRC_MetadataRecord<KRC_PanelInfoFieldDescList, KRC_PanelInfoFieldDescListPrivate, KRC_InfoFieldDescList>
{
public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;

    using KRC_MetadataRecord::KRC_MetadataRecord;

    PIO_Metadata* clone() const override;
};

// The record of the local fields' layout that panels share.
#pragma once

#include "infofields/KRC_ExtraInfoFieldDesc.h"
#include "metadata/KRC_MetadataRecord.h"

#include <list>

using KRC_ExtraInfoFieldDescList_t = std::list<KRC_ExtraInfoFieldDesc>;

class KRC_ExtraInfoFieldDescListPrivate;

/// The extra definitions of the panels: fields that stand outside the panel
/// definitions, each with the global field before which it stands. One record in the
/// project's metadata, in the user's order. Keyword "extraInfoFieldList", version
/// "1.0".
///
/// XML: nothing for an empty list; otherwise "extraInfoFieldList" holding one "field"
/// per entry with "name", "type" (only for an image, as "IMAGE"), "comment" ("true"
/// with the comment bit) and "position". A "position" that does not read as an integer
/// reads as -1. Dump: "Field: name=.., type=.., position=..\n" per entry, "EMPTY\n" for
/// none. `clone()` keeps the source's identity. Threading: the host's thread.
class KRC_ExtraInfoFieldDescList
    : public KRC_MetadataRecord<KRC_ExtraInfoFieldDescList, KRC_ExtraInfoFieldDescListPrivate>,
      public KRC_ExtraInfoFieldDescList_t
{
public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;

    using KRC_MetadataRecord::KRC_MetadataRecord;

    bool isValid() const override;
    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override;
    void dumpToString(QString& out) const override;

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;
};

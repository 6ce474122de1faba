// The record of the names of the fields that the user has hidden.
#pragma once

#include "metadata/KRC_MetadataRecord.h"

#include <QString>

#include <set>

class KRC_HiddenInfoFieldListPrivate;

/// The names of hidden fields, for definitions and extra definitions alike, sorted by
/// `QString::operator<`. One record in the project's metadata. Keyword
/// "hiddenInfoField", version "1.0".
///
/// XML: nothing for an empty set; otherwise "hiddenInfoField" holding one "field" with
/// the one attribute "name" per name, in set order; a name read twice is kept once.
/// Dump: "Field: name=..\n" per name, "EMPTY\n" for none. `clone()` keeps the source's
/// identity. Threading: the host's thread.
class KRC_HiddenInfoFieldList
    : public KRC_MetadataRecord<KRC_HiddenInfoFieldList, KRC_HiddenInfoFieldListPrivate>,
      public std::set<QString>
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

// Reads a "namingRules" record from its XML.
#pragma once

#include "metadata/KRC_MetadataReader.h"

class KRC_NamingRules;

/// The reader of KRC_NamingRules; it keeps its record to the end of the read.
/// The record's own element is read as the record's version tells ("2.0", or the
/// older flat "1.0"; other versions are not read), each "<word>_rules" element
/// fills the matching rules whatever the version, and other elements are skipped.
/// It never reports a format error. Threading: the thread of the read.
class NamingRulesMetadataReader : public KRC_MetadataReader
{
public:
    explicit NamingRulesMetadataReader(KRC_NamingRules* record);

    UT_SharedPtr<PIO_XML::ComponentReader> handleStartElement(
        PIO_ReadingContext& context, QString const& elementName, QXmlAttributes const& attributes) override;
};

#include "naming/NamingRulesMetadataReader.h"

#include "naming/KRC_NamingRules.h"

NamingRulesMetadataReader::NamingRulesMetadataReader(KRC_NamingRules* record)
    : KRC_MetadataReader(record, Release::Never)
{
}

UT_SharedPtr<PIO_XML::ComponentReader> NamingRulesMetadataReader::handleStartElement(
    PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes)
{
    KRC_NamingRules* rulesRecord = recordAs<KRC_NamingRules>();
    if (!rulesRecord)
        return self();
    if (elementName == KRC_NamingRules::kPIO_KRMETA_Keyword) {
        rulesRecord->readRecordElement(attributes);
    } else if (KRC_NamingRules::ObjRules* rules = rulesRecord->rulesOfElement(elementName)) {
        rules->readFromXml(attributes);
    }
    return self();
}

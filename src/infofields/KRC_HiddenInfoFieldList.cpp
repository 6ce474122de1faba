#include "infofields/KRC_HiddenInfoFieldList.h"

#include "infofields/InfoFieldFormat.h"
#include "infofields/InfoFieldRecordReader.h"
#include "metadata/KRC_MetadataRecordImpl.h"

/// Nothing of its own: the names live in the set base.
class KRC_HiddenInfoFieldListPrivate
{
};

template class KRC_MetadataRecord<KRC_HiddenInfoFieldList, KRC_HiddenInfoFieldListPrivate>;

QString const KRC_HiddenInfoFieldList::kPIO_KRMETA_Keyword = QStringLiteral("hiddenInfoField");
QString const KRC_HiddenInfoFieldList::kPIO_KRMETA_Version = QStringLiteral("1.0");

namespace {

/// Puts each "field"'s "name" into the set.
class HiddenInfoFieldListMetadataReader : public InfoFieldRecordReader
{
public:
    using InfoFieldRecordReader::InfoFieldRecordReader;

protected:
    void readField(QXmlAttributes const& attributes) override
    {
        recordAs<KRC_HiddenInfoFieldList>()->insert(text(attributes, InfoFieldFormat::kName));
    }
};

} // namespace

bool KRC_HiddenInfoFieldList::isValid() const
{
    return true;
}

PIO_XML::ComponentReader* KRC_HiddenInfoFieldList::componentReader()
{
    return KRC_MetadataReader::create<HiddenInfoFieldListMetadataReader>(this);
}

PIO_Metadata* KRC_HiddenInfoFieldList::clone() const
{
    return cloneKeepingIdentity();
}

void KRC_HiddenInfoFieldList::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    InfoFieldFormat::dumpEntries(
        out, *this, [](QString const& name) { return QStringLiteral("Field: name=%1\n").arg(name); });
}

void KRC_HiddenInfoFieldList::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    if (empty())
        return;
    writeRecordElement(context, [this](PO_XmlWriter& writer) {
        for (QString const& name : *this) {
            writer.beginElement(InfoFieldFormat::kField);
            writer.encodeStringAttr(InfoFieldFormat::kName, name);
            writer.endElement();
        }
    });
}

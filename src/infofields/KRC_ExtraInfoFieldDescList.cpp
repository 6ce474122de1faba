#include "infofields/KRC_ExtraInfoFieldDescList.h"

#include "infofields/InfoFieldFormat.h"
#include "infofields/InfoFieldRecordReader.h"
#include "metadata/KRC_MetadataRecordImpl.h"

/// Nothing of its own: the entries live in the list base.
class KRC_ExtraInfoFieldDescListPrivate
{
};

template class KRC_MetadataRecord<KRC_ExtraInfoFieldDescList, KRC_ExtraInfoFieldDescListPrivate>;

QString const KRC_ExtraInfoFieldDescList::kPIO_KRMETA_Keyword = QStringLiteral("extraInfoFieldList");
QString const KRC_ExtraInfoFieldDescList::kPIO_KRMETA_Version = QStringLiteral("1.0");

namespace {

/// Appends one entry per "field"; a "position" that is not an integer gives -1.
class ExtraFieldDescListMetadataReader : public InfoFieldRecordReader
{
public:
    using InfoFieldRecordReader::InfoFieldRecordReader;

protected:
    void readField(QXmlAttributes const& attributes) override
    {
        int position = -1;
        checkedInt(attributes, InfoFieldFormat::kPosition, position);
        recordAs<KRC_ExtraInfoFieldDescList>()->push_back(KRC_ExtraInfoFieldDesc(
            InfoFieldFormat::readType(attributes), text(attributes, InfoFieldFormat::kName), position));
    }
};

} // namespace

bool KRC_ExtraInfoFieldDescList::isValid() const
{
    return true;
}

PIO_XML::ComponentReader* KRC_ExtraInfoFieldDescList::componentReader()
{
    return KRC_MetadataReader::create<ExtraFieldDescListMetadataReader>(this);
}

PIO_Metadata* KRC_ExtraInfoFieldDescList::clone() const
{
    return cloneKeepingIdentity();
}

void KRC_ExtraInfoFieldDescList::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    InfoFieldFormat::dumpEntries(out, *this, [](KRC_ExtraInfoFieldDesc const& extra) {
        return QStringLiteral("Field: name=%1, type=%2, position=%3\n")
            .arg(extra.name(), InfoFieldFormat::typeName(extra.type()))
            .arg(extra.position());
    });
}

void KRC_ExtraInfoFieldDescList::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    if (empty())
        return;
    writeRecordElement(context, [this](PO_XmlWriter& writer) {
        for (KRC_ExtraInfoFieldDesc const& extra : *this) {
            writer.beginElement(InfoFieldFormat::kField);
            writer.encodeStringAttr(InfoFieldFormat::kName, extra.name());
            InfoFieldFormat::writeImageType(writer, extra.type());
            writer.encodeIntAttr(InfoFieldFormat::kPosition, extra.position());
            writer.endElement();
        }
    });
}

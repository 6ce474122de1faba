#include "infofields/KRC_InfoFieldDescList.h"

#include "infofields/InfoFieldFormat.h"
#include "infofields/InfoFieldIds.h"
#include "infofields/InfoFieldRecordReader.h"

namespace {

/// Appends one definition per "field" that has an integer "id"; "size" is not read.
class FieldDescListMetadataReader : public InfoFieldRecordReader
{
public:
    using InfoFieldRecordReader::InfoFieldRecordReader;

protected:
    void readField(QXmlAttributes const& attributes) override
    {
        int id = 0;
        if (!readId(attributes, id))
            return;
        recordAs<KRC_InfoFieldDescList>()->add(InfoFieldFormat::readType(attributes), id,
            text(attributes, InfoFieldFormat::kName), KRC_InfoFieldDesc::kDefault);
    }
};

template <class List> auto findName(List& list, QString const& name) -> decltype(list.begin())
{
    if (name.isEmpty())
        return list.end();
    return std::find_if(
        list.begin(), list.end(), [&name](KRC_InfoFieldDesc const& desc) { return desc.name() == name; });
}

} // namespace

KRC_InfoFieldDescList::KRC_InfoFieldDescList(
    QString const& metaType, QString const& metaName, QString const& creator, QString const& version)
    : PIO_Metadata(metaType, metaName, creator, version)
{
}

KRC_InfoFieldDescList::KRC_InfoFieldDescList(KRC_InfoFieldDescList const& other) = default;

KRC_InfoFieldDescList& KRC_InfoFieldDescList::operator=(KRC_InfoFieldDescList const& other) = default;

KRC_InfoFieldDescList::~KRC_InfoFieldDescList() = default;

bool KRC_InfoFieldDescList::isValid() const
{
    return true;
}

PIO_XML::ComponentReader* KRC_InfoFieldDescList::componentReader()
{
    return KRC_MetadataReader::create<FieldDescListMetadataReader>(this);
}

void KRC_InfoFieldDescList::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    InfoFieldFormat::dumpEntries(out, *this, [](KRC_InfoFieldDesc const& desc) {
        return QStringLiteral("Field: name=%4, type=%1, id=%2, size=%3\n")
            .arg(InfoFieldFormat::typeName(desc.type()))
            .arg(desc.id())
            .arg(InfoFieldFormat::sizeName(desc.size()), desc.name());
    });
}

void KRC_InfoFieldDescList::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    if (empty())
        return;
    PO_XmlWriter& writer = context.writer();
    writer.beginElement(metaType());
    for (KRC_InfoFieldDesc const& desc : *this) {
        writer.beginElement(InfoFieldFormat::kField);
        writer.encodeIntAttr(InfoFieldFormat::kId, desc.id());
        writer.encodeStringAttr(InfoFieldFormat::kName, desc.name());
        InfoFieldFormat::writeType(writer, desc.type());
        InfoFieldFormat::writeSize(writer, desc.size());
        writer.endElement();
    }
    writer.endElement();
}

KRC_InfoFieldDescList::iterator KRC_InfoFieldDescList::find(int id)
{
    return InfoFieldIds::find(entries(), id);
}

KRC_InfoFieldDescList::const_iterator KRC_InfoFieldDescList::find(int id) const
{
    return InfoFieldIds::find(entries(), id);
}

KRC_InfoFieldDescList::iterator KRC_InfoFieldDescList::find(QString const& name)
{
    return findName(entries(), name);
}

KRC_InfoFieldDescList::const_iterator KRC_InfoFieldDescList::find(QString const& name) const
{
    return findName(entries(), name);
}

bool KRC_InfoFieldDescList::contain(int id) const
{
    return InfoFieldIds::contain(entries(), id);
}

bool KRC_InfoFieldDescList::contain(QString const& name) const
{
    return find(name) != end();
}

void KRC_InfoFieldDescList::add(KRC_InfoFieldDesc::Type type, int id, QString const& name, KRC_InfoFieldDesc::Size size)
{
    push_back(KRC_InfoFieldDesc(type, id, name, size));
}

bool KRC_InfoFieldDescList::remove(std::set<int> const& ids)
{
    return InfoFieldIds::remove(entries(), ids);
}

bool KRC_InfoFieldDescList::remap(std::map<int, int> const& ids)
{
    return InfoFieldIds::remap(entries(), ids);
}

void KRC_InfoFieldDescList::getIds(std::set<int>& ids) const
{
    InfoFieldIds::getIds(entries(), ids);
}

void KRC_InfoFieldDescList::getIds(std::list<int>& ids) const
{
    InfoFieldIds::getIds(entries(), ids);
}

int KRC_InfoFieldDescList::getUniqId() const
{
    return InfoFieldIds::freeId(entries(), 0, 1);
}

int KRC_InfoFieldDescList::move(int id, int beforeId)
{
    return InfoFieldIds::move(entries(), id, beforeId);
}

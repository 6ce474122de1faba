#include "metadata/KRC_LayerInfos.h"

#include "metadata/KRC_MetadataReader.h"
#include "metadata/KRC_MetadataRecordImpl.h"

#include <QXmlAttributes>

#include <algorithm>

class KRC_LayerInfosPrivate
{
public:
    KRC_LayerInfos::Entries entries;
};

template class KRC_MetadataRecord<KRC_LayerInfos, KRC_LayerInfosPrivate>;

QString const KRC_LayerInfos::kPIO_KRMETA_Keyword = QStringLiteral("layerInfos");
QString const KRC_LayerInfos::kPIO_KRMETA_Version = QStringLiteral("1.0");

namespace {

// The format's names, shared by the writer, the reader and the dump.
QString const kLayer = QStringLiteral("layer");
QString const kName = QStringLiteral("name");
QString const kExportFlag = QStringLiteral("exportFlag");
QString const kLayerFlag = QStringLiteral("layerFlag");

// Flags are read strictly: a word that is not a base-10 number rejects its entry.
bool parseFlag(QXmlAttributes const& attributes, QString const& name, int& value)
{
    bool ok = false;
    const int parsed = attributes.value(name).toInt(&ok, 10);
    if (ok)
        value = parsed;
    return ok;
}

} // namespace

/// Fills a KRC_LayerInfos from its "layer" children, appending each in file order
/// without the duplicate removal of `add`. A flag that does not parse drops its entry
/// and answers a null reader, which tells the persistence the data is bad. Other
/// elements are ignored; the record is kept to the end of the read.
class LayerInfoMetadataReader : public KRC_MetadataReader
{
public:
    explicit LayerInfoMetadataReader(KRC_LayerInfos* record)
        : KRC_MetadataReader(record, Release::Never)
    {
    }

    UT_SharedPtr<PIO_XML::ComponentReader> handleStartElement(
        PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes) override
    {
        KRC_LayerInfos* infos = recordAs<KRC_LayerInfos>();
        if (!infos || elementName != kLayer)
            return self();
        KRC_LayerInfos::Entry entry(new KRC_LayerInfos::LayerInfo_t(attributes.value(kName)));
        if (!parseFlag(attributes, kExportFlag, entry->exportFlags)
            || !parseFlag(attributes, kLayerFlag, entry->layerFlags))
            return UT_SharedPtr<PIO_XML::ComponentReader>();
        infos->append(entry);
        return self();
    }
};

LAYER_FLAGS operator|(LAYER_FLAGS a, LAYER_FLAGS b)
{
    return static_cast<LAYER_FLAGS>(static_cast<int>(a) | static_cast<int>(b));
}

KRC_LayerInfos::LayerInfo_t::LayerInfo_t(QString const& layerName)
    : name(layerName)
{
}

bool KRC_LayerInfos::isValid() const
{
    return !priv().entries.empty();
}

PIO_XML::ComponentReader* KRC_LayerInfos::componentReader()
{
    // What the project holds replaces what the record held.
    Clear();
    return KRC_MetadataReader::create<LayerInfoMetadataReader>(this);
}

PIO_Metadata* KRC_LayerInfos::clone() const
{
    auto* copy = new KRC_LayerInfos();
    for (Entry const& entry : priv().entries) {
        if (!entry)
            continue;
        Entry fresh(new LayerInfo_t(*entry));
        copy->append(fresh);
    }
    return copy;
}

void KRC_LayerInfos::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    for (Entry const& entry : priv().entries) {
        if (entry)
            out += QStringLiteral("Layer: name=%1, exportFlags=%2, layerFlags=%3\n")
                       .arg(entry->name)
                       .arg(entry->exportFlags)
                       .arg(entry->layerFlags);
    }
}

void KRC_LayerInfos::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    writeRecordElement(context, [&](PO_XmlWriter& writer) {
        for (Entry const& entry : priv().entries) {
            if (!entry)
                continue;
            writer.beginElement(kLayer);
            writer.encodeStringAttr(kName, entry->name);
            writer.encodeIntAttr(kExportFlag, entry->exportFlags);
            writer.encodeIntAttr(kLayerFlag, entry->layerFlags);
            writer.endElement();
        }
    });
}

KRC_LayerInfos::Entries::const_iterator KRC_LayerInfos::begin() const
{
    return priv().entries.begin();
}

KRC_LayerInfos::Entries::const_iterator KRC_LayerInfos::end() const
{
    return priv().entries.end();
}

void KRC_LayerInfos::Clear()
{
    priv().entries.clear();
}

void KRC_LayerInfos::append(Entry const& entry)
{
    priv().entries.push_back(entry);
}

void KRC_LayerInfos::add(Entry const& entry)
{
    if (!entry)
        return;
    remove(entry->name);
    append(entry);
}

void KRC_LayerInfos::remove(QString const& name)
{
    Entries& entries = priv().entries;
    auto found = std::find_if(
        entries.begin(), entries.end(), [&](Entry const& entry) { return entry && entry->name == name; });
    if (found != entries.end())
        entries.erase(found);
}

KRC_LayerInfos::Entry KRC_LayerInfos::info(QString const& name) const
{
    for (Entry const& entry : priv().entries) {
        if (entry && entry->name == name)
            return entry;
    }
    return Entry();
}

KRC_LayerInfos::Entry KRC_LayerInfos::info(QString const& name, bool create)
{
    Entry found = static_cast<KRC_LayerInfos const&>(*this).info(name);
    if (!found && create) {
        found = Entry(new LayerInfo_t(name));
        add(found);
    }
    return found;
}

int KRC_LayerInfos::exportFlags(QString const& name) const
{
    const Entry entry = info(name);
    return entry ? entry->exportFlags : 0;
}

int KRC_LayerInfos::layerFlags(QString const& name) const
{
    const Entry entry = info(name);
    return entry ? entry->layerFlags : 0;
}

void KRC_LayerInfos::setExportFlags(QString const& name, EXPORT_FLAGS flags)
{
    if (Entry entry = info(name))
        entry->exportFlags = flags;
}

void KRC_LayerInfos::setLayerFlags(QString const& name, LAYER_FLAGS flags)
{
    if (Entry entry = info(name))
        entry->layerFlags = flags;
}

bool KRC_LayerInfos::infoByLayerFlags(LAYER_FLAGS flags, std::vector<Entry>& out) const
{
    for (Entry const& entry : priv().entries) {
        if (entry && (entry->layerFlags & flags))
            out.push_back(entry);
    }
    return !out.empty();
}

#include "metadata/KRC_PdfOptions.h"

#include "metadata/KRC_MetadataRecordImpl.h"
#include "metadata/PdfOptionsMetadataReader.h"
#include "properties/KRC_PropertiedObject.h"

#include <QDataStream>

class KRC_PdfOptionsPrivate
{
public:
    KRC_PropertiedObject options;
};

template class KRC_MetadataRecord<KRC_PdfOptions, KRC_PdfOptionsPrivate>;

QString const KRC_PdfOptions::kPIO_KRMETA_Keyword = QStringLiteral("pdfOptions");
QString const KRC_PdfOptions::kPIO_KRMETA_Version = QStringLiteral("1.0");
QString const KRC_PdfOptions::kExportEnabled = QStringLiteral("panel_export_enabled");

namespace {

// The stored form of one option: the format mark, then the property's stream items.
QByteArray optionBlob(KRC_Property const& property)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::ReadWrite);
    out << PdfOptionsMetadataReader::kBlobMark << PdfOptionsMetadataReader::kBlobMarkVersion;
    out.setVersion(PdfOptionsMetadataReader::kBlobStreamVersion);
    property.store(out);
    return bytes;
}

} // namespace

bool KRC_PdfOptions::isValid() const
{
    return true;
}

PIO_XML::ComponentReader* KRC_PdfOptions::componentReader()
{
    removeAll();
    return KRC_MetadataReader::create<PdfOptionsMetadataReader>(this);
}

PIO_Metadata* KRC_PdfOptions::clone() const
{
    return cloneAsFresh();
}

void KRC_PdfOptions::dumpToString(QString&) const { }

KRC_PropertiedObject& KRC_PdfOptions::pdfOptions()
{
    return priv().options;
}

KRC_PropertiedObject const& KRC_PdfOptions::pdfOptions() const
{
    return priv().options;
}

bool KRC_PdfOptions::exportEnabled() const
{
    return priv().options.getPropertyBool(kExportEnabled, true);
}

void KRC_PdfOptions::addPdfOptions(KRC_Property const* option)
{
    if (!option)
        return;
    // Cloned before the removal, which would delete `option` if it is one of ours.
    KRC_Property* const copy = option->clone();
    priv().options.removeProperty(copy->name());
    priv().options.addProperty(copy);
}

void KRC_PdfOptions::removePdfOption(QString const& name)
{
    priv().options.removeProperty(name);
}

void KRC_PdfOptions::removeAll()
{
    priv().options.clearProperties();
}

void KRC_PdfOptions::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    using Reader = PdfOptionsMetadataReader;
    std::list<KRC_Property*> properties;
    priv().options.getAllProperties(properties);
    writeRecordElement(context, [&](PO_XmlWriter& writer) {
        for (KRC_Property const* property : properties) {
            if (!property)
                continue;
            const QByteArray blob = optionBlob(*property);
            writer.beginElement(Reader::kOption);
            writer.encodeStringAttr(Reader::kName, property->name());
            writer.encodeIntAttr(Reader::kType, property->propertyType());
            writer.encodeBinaryElement(Reader::kValue, Reader::kData,
                reinterpret_cast<unsigned char const*>(blob.constData()), blob.size());
            writer.endElement();
        }
    });
}

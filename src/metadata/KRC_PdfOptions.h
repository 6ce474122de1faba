// A panel's options for PDF export, kept as typed properties.
#pragma once

#include "metadata/KRC_MetadataRecord.h"

class KRC_PdfOptionsPrivate;
class KRC_Property;
class KRC_PropertiedObject;

/// A free set of typed properties (KRC_PropertiedObject) for the PDF exporter, one
/// record on each panel's scene; Krolle::Panel_t::pdfOptions() gives it. Only
/// "panel_export_enabled" means something here: exportEnabled() reads it.
///
/// Keyword "pdfOptions", version "1.0"; always valid; an empty dump. XML: element
/// "pdfOptions" with one child "option" per property (attributes "name" and "type", the
/// propertyType()), holding a child "value" whose attribute "data" is the property's
/// stream form: the mark 0xb0b00000, 473, then the items in stream version 12. Reading
/// replaces the content (componentReader() empties the record first); blobs without the
/// mark are read as version 6 (see PdfOptionsMetadataReader). A caption list property
/// is written but doesn't come back, since the factory doesn't build that kind.
///
/// Copies and clone() hold clones of the properties; clone() is made afresh (null name,
/// this program, current version). Threading: the host's thread.
class KRC_PdfOptions : public KRC_MetadataRecord<KRC_PdfOptions, KRC_PdfOptionsPrivate>
{
public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;
    /// "panel_export_enabled".
    static QString const kExportEnabled;

    using KRC_MetadataRecord::KRC_MetadataRecord;

    bool isValid() const override;
    /// Empties the record, then reads into it.
    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override;
    /// Writes nothing.
    void dumpToString(QString& out) const override;

    KRC_PropertiedObject& pdfOptions();
    KRC_PropertiedObject const& pdfOptions() const;

    /// The bool value of "panel_export_enabled"; true without that property.
    bool exportEnabled() const;
    /// Replaces any property of the same name with a clone of `option` (which the caller
    /// keeps); the option goes to the end of the order. Null is ignored.
    void addPdfOptions(KRC_Property const* option);
    void removePdfOption(QString const& name);
    void removeAll();

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;
};

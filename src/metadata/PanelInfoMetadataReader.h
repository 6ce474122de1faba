// Reader of the "panelInfo" record.
#pragma once

#include "metadata/KRC_PanelInfo.h"
#include "metadata/ObjInfoMetadataReader.h"

/// Fills a KRC_PanelInfo from its element "panelInfo" (other elements are ignored): the
/// name, its flag and the export flag, numbers unchecked, so a file without "exportFlag"
/// stores 0 rather than the default 13. Forgets the record at the first end of element.
/// Threading: the thread of the read.
class PanelInfoMetadataReader : public ObjInfoMetadataReader
{
public:
    /// "exportFlag".
    static QString const kExportFlag;

    explicit PanelInfoMetadataReader(KRC_PanelInfo* record)
        : ObjInfoMetadataReader(record)
    {
    }

    UT_SharedPtr<PIO_XML::ComponentReader> handleStartElement(
        PIO_ReadingContext& context, QString const& elementName, QXmlAttributes const& attributes) override;
};

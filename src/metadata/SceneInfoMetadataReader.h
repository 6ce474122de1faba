// Reader of the "sceneInfo" record.
#pragma once

#include "metadata/KRC_SceneInfo.h"
#include "metadata/ObjInfoMetadataReader.h"

/// Fills a KRC_SceneInfo from its element "sceneInfo" (other elements are ignored): all
/// six attributes are read first, flags unchecked, then the three names are stored. A
/// missing or bad flag therefore stores 0, which also drops the custom bit of a new
/// record. Forgets the record at the first end of element. Threading: the thread of the
/// read.
class SceneInfoMetadataReader : public ObjInfoMetadataReader
{
public:
    /// "sequenceName", "sequenceNameFlag".
    static KRC_ObjInfo::NameAttributes const kSequenceName;
    /// "actName", "actNameFlag".
    static KRC_ObjInfo::NameAttributes const kActName;

    explicit SceneInfoMetadataReader(KRC_SceneInfo* record)
        : ObjInfoMetadataReader(record)
    {
    }

    UT_SharedPtr<PIO_XML::ComponentReader> handleStartElement(
        PIO_ReadingContext& context, QString const& elementName, QXmlAttributes const& attributes) override;
};

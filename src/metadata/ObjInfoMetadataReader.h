// Shared part of the readers of the two info records.
#pragma once

#include "metadata/KRC_MetadataReader.h"
#include "metadata/KRC_ObjInfo.h"

/// Base of SceneInfoMetadataReader and PanelInfoMetadataReader: holds the attribute
/// names of the object's own name and reads a stored name back. Both info readers let go
/// of their record at the first end of element. Threading: the thread of the read.
class ObjInfoMetadataReader : public KRC_MetadataReader
{
public:
    /// "name", "nameFlag".
    static KRC_ObjInfo::NameAttributes const kName;

    /// The name stored under `attributes`, with the unchecked strength: a missing text is
    /// empty, a missing or bad flag is 0 (so it is neither custom nor locked).
    static KRC_ObjectName readName(QXmlAttributes const& xml, KRC_ObjInfo::NameAttributes const& attributes);

protected:
    explicit ObjInfoMetadataReader(KRC_ObjInfo* record);
};

// Reader of the "soundAnnotation" record.
#pragma once

#include "metadata/KRC_MetadataReader.h"

class KRC_SoundAnnotation;

/// Fills a KRC_SoundAnnotation from its "soundFile" children: each one with an "id" that
/// parses as a base-10 integer stores its "path" under that id, not deleted, replacing an
/// earlier entry with the same id; ids are kept as written. Other elements, the record's
/// own among them, are ignored. The record is kept to the end of the read.
/// Threading: the thread of the read.
class SoundAnnotationMetadataReader : public KRC_MetadataReader
{
public:
    static QString const kSoundFile; // "soundFile"
    static QString const kId; // "id"
    static QString const kPath; // "path"

    explicit SoundAnnotationMetadataReader(KRC_SoundAnnotation* record);

    UT_SharedPtr<PIO_XML::ComponentReader> handleStartElement(
        PIO_ReadingContext& context, QString const& elementName, QXmlAttributes const& attributes) override;
};

#include "metadata/SoundAnnotationMetadataReader.h"

#include "metadata/KRC_SoundAnnotation.h"

QString const SoundAnnotationMetadataReader::kSoundFile = QStringLiteral("soundFile");
QString const SoundAnnotationMetadataReader::kId = QStringLiteral("id");
QString const SoundAnnotationMetadataReader::kPath = QStringLiteral("path");

SoundAnnotationMetadataReader::SoundAnnotationMetadataReader(KRC_SoundAnnotation* record)
    : KRC_MetadataReader(record, Release::Never)
{
}

UT_SharedPtr<PIO_XML::ComponentReader> SoundAnnotationMetadataReader::handleStartElement(
    PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes)
{
    KRC_SoundAnnotation* sounds = recordAs<KRC_SoundAnnotation>();
    int id = 0;
    if (sounds && elementName == kSoundFile && checkedInt(attributes, kId, id))
        sounds->add(id, text(attributes, kPath));
    return self();
}

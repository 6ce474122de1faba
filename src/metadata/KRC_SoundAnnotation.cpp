#include "metadata/KRC_SoundAnnotation.h"

#include "metadata/KRC_MetadataRecordImpl.h"
#include "metadata/SoundAnnotationMetadataReader.h"

class KRC_SoundAnnotationPrivate
{
public:
    KRC_SoundAnnotation::SoundFileMap files;

    KRC_SoundAnnotation::SoundFilePath_t* find(int id)
    {
        auto it = files.find(id);
        return it == files.end() ? nullptr : &it->second;
    }
};

template class KRC_MetadataRecord<KRC_SoundAnnotation, KRC_SoundAnnotationPrivate>;

QString const KRC_SoundAnnotation::kPIO_KRMETA_Keyword = QStringLiteral("soundAnnotation");
QString const KRC_SoundAnnotation::kPIO_KRMETA_Version = QStringLiteral("1.0");

bool KRC_SoundAnnotation::isValid() const
{
    return true;
}

PIO_XML::ComponentReader* KRC_SoundAnnotation::componentReader()
{
    return KRC_MetadataReader::create<SoundAnnotationMetadataReader>(this);
}

PIO_Metadata* KRC_SoundAnnotation::clone() const
{
    return cloneKeepingIdentity();
}

void KRC_SoundAnnotation::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    if (priv().files.empty()) {
        out += QStringLiteral("No sound annotation\n");
        return;
    }
    for (auto const& entry : priv().files) {
        out += QStringLiteral("Sound Annotation id=%1, path=%2, deleted=%3\n")
                   .arg(entry.first)
                   .arg(entry.second.path)
                   .arg(entry.second.deleted ? 1 : 0);
    }
}

void KRC_SoundAnnotation::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    writeRecordElement(context, [this](PO_XmlWriter& writer) {
        for (auto const& entry : priv().files) {
            // A soft delete becomes final here: the entry is not written.
            if (entry.second.deleted)
                continue;
            writer.beginElement(SoundAnnotationMetadataReader::kSoundFile);
            writer.encodeIntAttr(SoundAnnotationMetadataReader::kId, entry.first);
            writer.encodeStringAttr(SoundAnnotationMetadataReader::kPath, entry.second.path);
            writer.endElement();
        }
    });
}

int KRC_SoundAnnotation::add(QString const& path)
{
    const int id = priv().files.empty() ? 1 : priv().files.rbegin()->first + 1;
    return add(id, path);
}

int KRC_SoundAnnotation::add(int id, QString const& path)
{
    priv().files[id] = SoundFilePath_t { path, false };
    return id;
}

bool KRC_SoundAnnotation::remove(int id)
{
    return priv().files.erase(id) > 0;
}

bool KRC_SoundAnnotation::move(int id, QString const& path)
{
    SoundFilePath_t* entry = priv().find(id);
    if (!entry)
        return false;
    *entry = SoundFilePath_t { path, false };
    return true;
}

bool KRC_SoundAnnotation::markDeleted(int id, bool deleted)
{
    SoundFilePath_t* entry = priv().find(id);
    if (entry)
        entry->deleted = deleted;
    return entry != nullptr;
}

QString KRC_SoundAnnotation::filePath(int id) const
{
    auto it = priv().files.find(id);
    return it == priv().files.end() ? QString() : it->second.path;
}

unsigned int KRC_SoundAnnotation::count() const
{
    return static_cast<unsigned int>(priv().files.size());
}

KRC_SoundAnnotation::SoundFileMap const& KRC_SoundAnnotation::soundFiles() const
{
    return priv().files;
}

KRC_SoundAnnotation::SoundFileMap::const_iterator KRC_SoundAnnotation::begin() const
{
    return priv().files.cbegin();
}

KRC_SoundAnnotation::SoundFileMap::const_iterator KRC_SoundAnnotation::end() const
{
    return priv().files.cend();
}

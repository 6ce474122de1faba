// The record of the sound files annotated on a panel.
#pragma once

#include "metadata/KRC_MetadataRecord.h"

#include <map>

class KRC_SoundAnnotationPrivate;

/// The sound files annotated on a panel, by integer id, in id order.
///
/// Deletion is soft: an entry marked deleted stays in memory (its path still answers,
/// `count()` includes it, `add(path)` numbers past it) but is not written, so a save and
/// reload make the delete final. `move` brings a deleted entry back. The record only keeps
/// paths; it never touches the files. Always valid. Keyword "soundAnnotation", version
/// "1.0"; XML: the element, then one child "soundFile" with "id" and "path" per entry not
/// marked deleted, in id order. Threading: the host's thread.
class KRC_SoundAnnotation : public KRC_MetadataRecord<KRC_SoundAnnotation, KRC_SoundAnnotationPrivate>
{
public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;

    struct SoundFilePath_t
    {
        QString path;
        bool deleted = false;
    };
    using SoundFileMap = std::map<int, SoundFilePath_t>;

    using KRC_MetadataRecord::KRC_MetadataRecord;

    bool isValid() const override;
    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override;
    void dumpToString(QString& out) const override;

    /// Stores the path under 1 in an empty record, else under the largest id plus one
    /// (deleted entries count); answers the id.
    int add(QString const& path);
    /// Stores the path under `id`, not deleted, replacing any entry there; answers `id`.
    int add(int id, QString const& path);
    /// Erases the entry; false when there is none.
    bool remove(int id);
    /// Gives the entry a new path and clears its deleted flag; false (nothing changed)
    /// when there is none.
    bool move(int id, QString const& path);
    /// Sets the deleted flag; false when there is no entry.
    bool markDeleted(int id, bool deleted);
    /// The path, also of a deleted entry; a null string for an unknown id.
    QString filePath(int id) const;
    /// The number of entries, deleted ones included.
    unsigned int count() const;

    SoundFileMap const& soundFiles() const;
    SoundFileMap::const_iterator begin() const;
    SoundFileMap::const_iterator end() const;

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;
};

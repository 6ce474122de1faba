// The record of a panel's tracking: whether it is tracked, since when, and why.
#pragma once

#include "metadata/KRC_MetadataRecord.h"

#include <QDateTime>
#include <QString>

class KRC_TrackingPrivate;

/// Whether a panel is tracked, with the date and a note, on the panel's own scene. The
/// accessors only store: whoever changes the record reports the change.
///
/// A new record is untracked, with a null date and a null note. Valid when untracked;
/// a tracked record needs a valid date and a non-null note (an empty note passes).
/// Keyword "tracking", version "1.0"; XML: one element "tracking" with trackingFlag,
/// trackingDate (ISO form, empty for a null date) and trackingNote, in that order.
/// Reading keeps `isTracked` when the flag is not a bool and stores the note as read,
/// so a read note is never null. `clone()` keeps the source's identity. Threading: the
/// host's thread.
class KRC_Tracking : public KRC_MetadataRecord<KRC_Tracking, KRC_TrackingPrivate>
{
public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;

    using KRC_MetadataRecord::KRC_MetadataRecord;

    bool isValid() const override;
    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override;
    void dumpToString(QString& out) const override;

    bool isTracked() const;
    void setIsTracked(bool tracked);
    QDateTime const& trackingDate() const;
    void setTrackingDate(QDateTime const& date);
    QString const& trackingNote() const;
    void setTrackingNote(QString const& note);

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;
};

#include "metadata/KRC_Tracking.h"

#include "metadata/KRC_MetadataDump.h"
#include "metadata/KRC_MetadataReader.h"
#include "metadata/KRC_MetadataRecordImpl.h"

#include <QXmlAttributes>

class KRC_TrackingPrivate
{
public:
    bool isTracked = false;
    QDateTime trackingDate;
    QString trackingNote;
};

template class KRC_MetadataRecord<KRC_Tracking, KRC_TrackingPrivate>;

QString const KRC_Tracking::kPIO_KRMETA_Keyword = QStringLiteral("tracking");
QString const KRC_Tracking::kPIO_KRMETA_Version = QStringLiteral("1.0");

namespace {

// The format's names, shared by the writer, the reader and the dump.
QString const kTrackingFlag = QStringLiteral("trackingFlag");
QString const kTrackingDate = QStringLiteral("trackingDate");
QString const kTrackingNote = QStringLiteral("trackingNote");

QString dateText(QDateTime const& date)
{
    return date.toString(Qt::ISODate);
}

QDateTime dateFromText(QString const& text)
{
    return text.isEmpty() ? QDateTime() : QDateTime::fromString(text, Qt::ISODate);
}

} // namespace

/// Fills a KRC_Tracking from its one element: the flag only when it is a bool, the
/// date (null when empty) and the note as read. Lets go at the first end of element.
class TrackingMetadataReader : public KRC_MetadataReader
{
public:
    explicit TrackingMetadataReader(KRC_Tracking* record)
        : KRC_MetadataReader(record, Release::AtFirstEnd)
    {
    }

    UT_SharedPtr<PIO_XML::ComponentReader> handleStartElement(
        PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes) override
    {
        if (KRC_Tracking* tracking = recordForElement<KRC_Tracking>(elementName)) {
            bool tracked = false;
            if (PO_Utils::parseBoolAttr(attributes.value(kTrackingFlag), tracked))
                tracking->setIsTracked(tracked);
            tracking->setTrackingDate(dateFromText(attributes.value(kTrackingDate)));
            tracking->setTrackingNote(text(attributes, kTrackingNote));
        }
        return self();
    }
};

bool KRC_Tracking::isValid() const
{
    return !isTracked() || (trackingDate().isValid() && !trackingNote().isNull());
}

PIO_XML::ComponentReader* KRC_Tracking::componentReader()
{
    return KRC_MetadataReader::create<TrackingMetadataReader>(this);
}

PIO_Metadata* KRC_Tracking::clone() const
{
    return cloneKeepingIdentity();
}

void KRC_Tracking::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    KRC_MetadataDump::appendLine(out,
        { { kTrackingFlag, isTracked() ? QStringLiteral("true") : QStringLiteral("false") },
            { kTrackingDate, dateText(trackingDate()) }, { kTrackingNote, trackingNote() } });
}

void KRC_Tracking::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    writeRecordElement(context, [&](PO_XmlWriter& writer) {
        writer.encodeBoolAttr(kTrackingFlag, isTracked());
        writer.encodeStringAttr(kTrackingDate, dateText(trackingDate()));
        writer.encodeStringAttr(kTrackingNote, trackingNote());
    });
}

bool KRC_Tracking::isTracked() const
{
    return priv().isTracked;
}

void KRC_Tracking::setIsTracked(bool tracked)
{
    priv().isTracked = tracked;
}

QDateTime const& KRC_Tracking::trackingDate() const
{
    return priv().trackingDate;
}

void KRC_Tracking::setTrackingDate(QDateTime const& date)
{
    priv().trackingDate = date;
}

QString const& KRC_Tracking::trackingNote() const
{
    return priv().trackingNote;
}

void KRC_Tracking::setTrackingNote(QString const& note)
{
    priv().trackingNote = note;
}

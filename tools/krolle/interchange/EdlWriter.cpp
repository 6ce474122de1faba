#include "EdlWriter.h"

#include "StoryboardCut.h"

#include "../Timecode.h"

namespace {

const QString kReel = QStringLiteral("AX");

class EventList
{
public:
    explicit EventList(const Timecode& record)
        : m_clock(record.rate())
        , m_record(record.start())
    {
    }

    // One event: the clip plays from `lead` frames before its cut to `trail` frames before its end.
    void add(const CutClip& clip, const CutTransition* before, unsigned trail, unsigned lead)
    {
        const unsigned length = lead + clip.length - trail;
        ++m_event;
        if (before) {
            line(QStringLiteral("C"), QString(), m_outgoingEnd, m_outgoingEnd, m_record, m_record);
            line(QStringLiteral("D"), QStringLiteral("%1").arg(before->inOffset + before->outOffset, 3, 10, QLatin1Char('0')),
                0, length, m_record, m_record + length);
            m_text += QStringLiteral("* FROM CLIP NAME: %1\n* TO CLIP NAME: %2\n").arg(m_outgoingName, clip.name);
        } else {
            line(QStringLiteral("C"), QString(), 0, length, m_record, m_record + length);
            m_text += QStringLiteral("* FROM CLIP NAME: %1\n").arg(clip.name);
        }
        m_record += length;
        m_outgoingEnd = length;
        m_outgoingName = clip.name;
    }

    const QString& text() const { return m_text; }

private:
    void line(const QString& edit, const QString& duration, unsigned sourceIn, unsigned sourceOut,
        unsigned long long recordIn, unsigned long long recordOut)
    {
        m_text += QStringLiteral("%1  %2 %3 %4 %5 %6 %7 %8 %9\n")
                      .arg(m_event, 3, 10, QLatin1Char('0'))
                      .arg(kReel, -8)
                      .arg(QStringLiteral("V"), -5)
                      .arg(edit, -4)
                      .arg(duration, 3)
                      .arg(m_clock.label(sourceIn), m_clock.label(sourceOut), m_clock.label(recordIn),
                          m_clock.label(recordOut));
    }

    Timecode m_clock;
    unsigned long long m_record;
    unsigned m_event = 0;
    unsigned m_outgoingEnd = 0;
    QString m_outgoingName;
    QString m_text;
};

} // namespace

QString EdlWriter::write(const StoryboardCut& cut, const Timecode& record)
{
    EventList events(record);
    const CutTransition* before = nullptr;
    for (size_t i = 0; i < cut.items.size(); ++i) {
        const CutItem& item = cut.items[i];
        if (item.isTransition) {
            before = &item.transition;
            continue;
        }
        const bool joined = i + 1 < cut.items.size() && cut.items[i + 1].isTransition;
        events.add(item.clip, before, joined ? cut.items[i + 1].transition.inOffset : 0,
            before ? before->inOffset : 0);
        before = nullptr;
    }
    return QStringLiteral("TITLE: %1\nFCM: %2\n\n")
               .arg(cut.title, record.rate().isDropFrame() ? QStringLiteral("DROP FRAME") : QStringLiteral("NON-DROP FRAME"))
        + events.text();
}

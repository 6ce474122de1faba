#include "ProjectSummary.h"

#include "Wording.h"

#include "project/KRC_KrolleProject.h"

ProjectSummary::ProjectSummary(const KRC_KrolleProject& view)
    : m_acts(view.actCount())
    , m_sequences(view.sequenceCount())
    , m_shots(view.shotCount())
    , m_panels(view.panelCount())
    , m_transitions(view.transCount())
    , m_frames(view.getNumOfFrames())
{
}

QJsonObject ProjectSummary::json() const
{
    return QJsonObject { { QStringLiteral("acts"), static_cast<qint64>(m_acts) },
        { QStringLiteral("sequences"), static_cast<qint64>(m_sequences) },
        { QStringLiteral("shots"), static_cast<qint64>(m_shots) },
        { QStringLiteral("panels"), static_cast<qint64>(m_panels) },
        { QStringLiteral("transitions"), static_cast<qint64>(m_transitions) },
        { QStringLiteral("frames"), static_cast<qint64>(m_frames) } };
}

QString ProjectSummary::text() const
{
    return describe(json());
}

QString ProjectSummary::describe(const QJsonObject& counts)
{
    static const char* const kWords[][3]
        = { { "acts", "act", "acts" }, { "sequences", "sequence", "sequences" }, { "shots", "shot", "shots" },
              { "panels", "panel", "panels" }, { "transitions", "transition", "transitions" },
              { "frames", "frame", "frames" } };
    QStringList parts;
    for (const auto& words : kWords)
        parts << Wording::counted(
            static_cast<unsigned>(counts.value(QLatin1String(words[0])).toInt()), words[1], words[2]);
    return parts.join(QStringLiteral(", "));
}

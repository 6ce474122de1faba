#include "ObjectJson.h"

#include "Timecode.h"

#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "project/KRC_KrolleProject.h"

ObjectJson::ObjectJson(const KRC_KrolleProject& view, const Timecode& clock)
    : m_view(view)
    , m_clock(clock)
{
}

void ObjectJson::addClock(QJsonObject& document, const Timecode& clock)
{
    const FrameRate& rate = clock.rate();
    if (!clock.isValid()) {
        document.insert(QStringLiteral("fps"), QJsonValue());
        return;
    }
    // Whole rates stay whole numbers; 29.97 is written as its label reads.
    document.insert(QStringLiteral("fps"),
        rate.denominator() == 1 ? QJsonValue(static_cast<int>(rate.numerator()))
                                : QJsonValue(FrameRate(rate.numerator(), rate.denominator()).toString().toDouble()));
    document.insert(QStringLiteral("dropFrame"), rate.isDropFrame());
    document.insert(QStringLiteral("startTimecode"), clock.label(clock.start()));
}

void ObjectJson::addFrames(QJsonObject& object, unsigned first, unsigned last) const
{
    object.insert(QStringLiteral("firstFrame"), static_cast<qint64>(first));
    object.insert(QStringLiteral("lastFrame"), static_cast<qint64>(last));
    object.insert(QStringLiteral("length"), static_cast<qint64>(last - first + 1));
    if (!m_clock.isValid())
        return;
    object.insert(QStringLiteral("timecode"),
        QJsonObject { { QStringLiteral("in"), m_clock.ofFrame(first) },
            { QStringLiteral("out"), m_clock.ofFrame(last) },
            { QStringLiteral("duration"), m_clock.ofLength(last - first + 1) } });
}

QJsonValue ObjectJson::sequenceOf(const Krolle::Shot_t& shot) const
{
    return m_view.sequenceExists() ? QJsonValue(shot.sequenceName()) : QJsonValue();
}

QJsonValue ObjectJson::shot(const Krolle::Shot_t& shot, unsigned number) const
{
    if (shot.isInvalid())
        return QJsonValue();
    const KRC_SceneInfo* info = shot.sceneInfo();
    QJsonObject object { { QStringLiteral("number"), static_cast<qint64>(number) },
        { QStringLiteral("id"), shot.id().toString() }, { QStringLiteral("name"), shot.name() },
        { QStringLiteral("custom"), info && info->name().isCustom() },
        { QStringLiteral("act"), shot.actName() }, { QStringLiteral("sequence"), sequenceOf(shot) } };
    addFrames(object, shot.firstFrame(), shot.lastFrame());
    return object;
}

QJsonValue ObjectJson::panel(const Krolle::Panel_t& panel, unsigned number) const
{
    if (panel.isInvalid())
        return QJsonValue();
    const KRC_PanelInfo* info = panel.panelInfo();
    QJsonObject object { { QStringLiteral("number"), static_cast<qint64>(number) },
        { QStringLiteral("id"), panel.id().toString() }, { QStringLiteral("name"), panel.name() },
        { QStringLiteral("custom"), info && info->name().isCustom() } };
    addFrames(object, panel.firstFrame(), panel.lastFrame());
    return object;
}

QJsonValue ObjectJson::transition(
    const Krolle::Trans_t& transition, unsigned number, unsigned after, unsigned before) const
{
    if (transition.isInvalid())
        return QJsonValue();
    auto shotNumber = [](unsigned n) { return n ? QJsonValue(static_cast<qint64>(n)) : QJsonValue(); };
    QJsonObject object { { QStringLiteral("number"), static_cast<qint64>(number) },
        { QStringLiteral("id"), transition.id().toString() }, { QStringLiteral("name"), transition.name() },
        { QStringLiteral("type"), transition.type() }, { QStringLiteral("angle"), transition.angle() },
        { QStringLiteral("reverse"), transition.reverse() },
        { QStringLiteral("afterShot"), shotNumber(after) },
        { QStringLiteral("beforeShot"), shotNumber(before) } };
    addFrames(object, transition.firstFrame(), transition.lastFrame());
    return object;
}

QJsonObject ObjectJson::run(const QString& name, unsigned number, unsigned firstShot, unsigned shotCount,
    unsigned firstFrame, unsigned lastFrame) const
{
    QJsonObject object { { QStringLiteral("number"), static_cast<qint64>(number) },
        { QStringLiteral("name"), name }, { QStringLiteral("firstShot"), static_cast<qint64>(firstShot) },
        { QStringLiteral("shotCount"), static_cast<qint64>(shotCount) } };
    addFrames(object, firstFrame, lastFrame);
    return object;
}

QJsonValue ObjectJson::shot(const Krolle::Shot_t& shot) const
{
    return this->shot(shot, m_view.getShotNdx(shot) + 1);
}

QJsonValue ObjectJson::panel(const Krolle::Panel_t& panel) const
{
    return this->panel(panel, m_view.getPanelNdx(panel, true) + 1);
}

QJsonValue ObjectJson::transition(const Krolle::Trans_t& transition) const
{
    if (transition.isInvalid())
        return QJsonValue();
    unsigned number = 0;
    for (Krolle::Trans_t t = transition; t.isValid(); t = m_view.prev(t))
        ++number;
    // The shots it joins: both cover its first frame, the earlier on the previous side.
    Krolle::Trans_t found;
    unsigned after = 0;
    unsigned before = 0;
    const Krolle::Shot_t previous = m_view.getShotAt(transition.firstFrame(), KRC_KrolleProject::PreferPrevious);
    if (m_view.isFollowedByTrans(previous, &found) && found == transition)
        after = m_view.getShotNdx(previous) + 1;
    const Krolle::Shot_t next = m_view.getShotAt(transition.firstFrame(), KRC_KrolleProject::PreferNext);
    if (m_view.isPrecededByTrans(next, &found) && found == transition)
        before = m_view.getShotNdx(next) + 1;
    return this->transition(transition, number, after, before);
}

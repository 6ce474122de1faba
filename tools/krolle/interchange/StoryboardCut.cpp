#include "StoryboardCut.h"

#include "../InfoFieldText.h"
#include "../NamingRulesEditor.h"
#include "../ObjectJson.h"

#include "infofields/KRC_InfoFieldList.h"
#include "infofields/KRC_PanelInfoFieldDescList.h"
#include "metadata/KRC_SceneInfo.h"
#include "metadata/KRC_Tracking.h"
#include "project/KRC_KrolleProject.h"

#include <QJsonArray>

#include <algorithm>

const QString StoryboardCut::kNamespace = QStringLiteral("krolle");

namespace {

const int kFactsSchema = 1;

// The frames of one shot that the cut shows: from the cut of the transition
// before it to the frame before the cut of the transition after it.
struct ShownRange
{
    unsigned first;
    unsigned last;
};

unsigned firstHalf(const Krolle::Trans_t& transition)
{
    return transition.objNumOfFrame() / 2;
}

unsigned cutFrame(const Krolle::Trans_t& transition)
{
    return transition.firstFrame() + firstHalf(transition);
}

CutClip clipOf(const QString& name, unsigned first, unsigned last, ShownRange shown)
{
    CutClip clip;
    clip.name = name;
    clip.first = std::max(first, shown.first);
    const unsigned end = std::min(last, shown.last);
    clip.length = end >= clip.first ? end - clip.first + 1 : 0;
    clip.hidden = last - first + 1 - clip.length;
    return clip;
}

QJsonObject shotReference(const QJsonObject& facts)
{
    return { { QStringLiteral("id"), facts.value(QStringLiteral("id")) },
        { QStringLiteral("name"), facts.value(QStringLiteral("name")) } };
}

QJsonObject shotFacts(const ObjectJson& objects, const Krolle::Shot_t& shot, unsigned number)
{
    QJsonObject facts = objects.shot(shot, number).toObject();
    const KRC_SceneInfo* info = shot.sceneInfo();
    facts.insert(QStringLiteral("actCustom"), info && info->actName().isCustom());
    facts.insert(QStringLiteral("sequenceCustom"), info && info->sequenceName().isCustom());
    return facts;
}

class CutReader
{
public:
    CutReader(const KRC_KrolleProject& view, StoryboardCut& cut)
        : m_view(view)
        , m_objects(view, Timecode())
        , m_cut(cut)
        , m_fields(!view.panelInfoFieldDescList()->empty())
    {
    }

    void read()
    {
        m_cut.items.reserve(m_cut.by == StoryboardCut::By::Panel ? m_view.panelCount() + m_view.transCount()
                                                                 : m_view.shotCount() + m_view.transCount());
        Krolle::Shot_t shot = m_view.first(Krolle::Shot_t::invalid);
        Krolle::Trans_t transition;
        if (shot.isValid() && m_view.isPrecededByTrans(shot, &transition))
            m_cut.facts.insert(QStringLiteral("openingTransition"), m_objects.transition(transition, 1, 0, 1));
        unsigned shownFrom = shot.isValid() ? shot.firstFrame() : 1;
        unsigned transitions = m_cut.facts.contains(QStringLiteral("openingTransition")) ? 1 : 0;
        for (unsigned number = 1; shot.isValid(); ++number) {
            const Krolle::Shot_t next = m_view.next(shot);
            const bool joined = m_view.isFollowedByTrans(shot, &transition);
            const unsigned shownTo = joined && next.isValid() ? cutFrame(transition) - 1 : shot.lastFrame();
            addShot(shot, number, { shownFrom, shownTo });
            if (joined) {
                const QJsonValue facts
                    = m_objects.transition(transition, ++transitions, number, next.isValid() ? number + 1 : 0);
                if (next.isValid())
                    addTransition(transition, facts.toObject());
                else
                    m_cut.facts.insert(QStringLiteral("closingTransition"), facts);
            }
            shownFrom = joined && next.isValid() ? cutFrame(transition) : shownTo + 1;
            shot = next;
        }
        clampOffsets();
    }

private:
    void addShot(const Krolle::Shot_t& shot, unsigned number, ShownRange shown)
    {
        const QJsonObject facts = shotFacts(m_objects, shot, number);
        if (m_cut.by == StoryboardCut::By::Shot) {
            CutItem item;
            item.clip = clipOf(shot.name(), shot.firstFrame(), shot.lastFrame(), shown);
            QJsonArray panels;
            unsigned panelNumber = 0;
            for (auto panel = m_view.beginPanel(shot), end = m_view.endPanel(shot); panel != end; ++panel)
                panels.append(panelFacts(*panel, ++panelNumber));
            item.clip.facts = { { QStringLiteral("shot"), facts }, { QStringLiteral("panels"), panels } };
            item.clip.image = imageOf(*m_view.beginPanel(shot));
            addClip(std::move(item), shot.name());
            return;
        }
        unsigned panelNumber = 0;
        for (auto panel = m_view.beginPanel(shot), end = m_view.endPanel(shot); panel != end; ++panel) {
            CutItem item;
            item.clip = clipOf(shot.name() + QLatin1Char('/') + panel->name(), panel->firstFrame(),
                panel->lastFrame(), shown);
            // The shot's facts stand once, on its first clip; the others name it.
            item.clip.opensShot = ++panelNumber == 1;
            item.clip.image = imageOf(*panel);
            item.clip.facts = { { QStringLiteral("shot"), item.clip.opensShot ? facts : shotReference(facts) },
                { QStringLiteral("panel"), panelFacts(*panel, panelNumber) } };
            addClip(std::move(item), shot.name());
        }
    }

    void addClip(CutItem&& item, const QString& shotName)
    {
        item.clip.shotName = shotName;
        item.clip.opensShot = item.clip.opensShot || m_cut.by == StoryboardCut::By::Shot;
        item.clip.facts.insert(QStringLiteral("hidden"), static_cast<qint64>(item.clip.hidden));
        m_cut.items.push_back(std::move(item));
    }

    void addTransition(const Krolle::Trans_t& transition, const QJsonObject& facts)
    {
        CutItem item;
        item.isTransition = true;
        item.transition.name = transition.name();
        item.transition.length = transition.objNumOfFrame();
        item.transition.inOffset = firstHalf(transition);
        item.transition.outOffset = item.transition.length - item.transition.inOffset;
        item.transition.facts = facts;
        m_cut.items.push_back(std::move(item));
    }

    // No offset may reach past the clip beside it.
    void clampOffsets()
    {
        std::vector<CutItem>& items = m_cut.items;
        for (size_t i = 1; i + 1 < items.size(); ++i) {
            if (!items[i].isTransition)
                continue;
            CutTransition& transition = items[i].transition;
            transition.inOffset = std::min(transition.inOffset, items[i - 1].clip.length);
            transition.outOffset = std::min(transition.outOffset, items[i + 1].clip.length);
        }
    }

    QString imageOf(const Krolle::Panel_t& panel) const
    {
        return m_fields ? InfoFieldText::imageKey(panel) : QString();
    }

    // A panel's facts, with its field values (plain text) where the project has fields.
    QJsonObject panelFacts(const Krolle::Panel_t& panel, unsigned number) const
    {
        QJsonObject facts = m_objects.panel(panel, number).toObject();
        if (m_fields)
            facts.insert(QStringLiteral("fields"), InfoFieldText::panelValues(m_view, panel, true));
        const QJsonObject tracking = StoryboardCut::trackingOf(panel);
        if (tracking.value(QStringLiteral("tracked")).toBool())
            facts.insert(QStringLiteral("tracking"), tracking);
        return facts;
    }

    const KRC_KrolleProject& m_view;
    const ObjectJson m_objects;
    StoryboardCut& m_cut;
    const bool m_fields;
};

} // namespace

QJsonObject StoryboardCut::trackingOf(const Krolle::Panel_t& panel)
{
    const KRC_Tracking* tracking = panel.tracking();
    const bool tracked = tracking && tracking->isTracked();
    return { { QStringLiteral("tracked"), tracked },
        { QStringLiteral("date"), tracked ? tracking->trackingDate().toString(Qt::ISODate) : QString() },
        { QStringLiteral("note"), tracked ? tracking->trackingNote() : QString() } };
}

StoryboardCut StoryboardCut::read(const KRC_KrolleProject& view, By by, const QString& title)
{
    StoryboardCut cut;
    cut.title = title;
    cut.by = by;
    cut.frameCount = view.getNumOfFrames();
    cut.facts = { { QStringLiteral("schema"), kFactsSchema },
        { QStringLiteral("by"), by == By::Panel ? QStringLiteral("panel") : QStringLiteral("shot") },
        { QStringLiteral("frames"), static_cast<qint64>(cut.frameCount) },
        { QStringLiteral("sequencesExist"), view.sequenceExists() },
        { QStringLiteral("namingRules"), NamingRulesEditor(*view.namingRules()).json() },
        { QStringLiteral("panelFields"), InfoFieldText::panelDefinitions(view) } };
    CutReader(view, cut).read();
    return cut;
}

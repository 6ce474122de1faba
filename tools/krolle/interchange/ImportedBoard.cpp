#include "ImportedBoard.h"

#include "../InfoFieldText.h"

#include "metadata/KRC_Tracking.h"
#include "project/KRC_KrolleProject.h"

StoryboardPlan ImportedBoard::plan() const
{
    QStringList tokens;
    QVector<StoryboardPlan::Shot> names;
    unsigned panels = 0;
    int next = 0;
    auto addTransitionsAt = [&](unsigned junction) {
        for (; next < transitions.size() && transitions[next].junction == junction; ++next) {
            const Transition& t = transitions[next];
            tokens << QStringLiteral("T%1:%2,%3%4")
                          .arg(t.length)
                          .arg(t.type)
                          .arg(t.angle)
                          .arg(t.reverse ? QStringLiteral(",r") : QString());
        }
    };
    for (int i = 0; i < shots.size(); ++i) {
        addTransitionsAt(unsigned(i));
        QStringList lengths;
        for (unsigned length : shots[i].panelLengths)
            lengths << QString::number(length);
        tokens << QStringLiteral("S[%1]").arg(lengths.join(QLatin1Char(',')));
        names.append(shots[i].names);
        panels += unsigned(shots[i].panelLengths.size());
    }
    addTransitionsAt(unsigned(shots.size()));
    return StoryboardPlan::custom(tokens.join(QLatin1Char(' ')), names, panels, sequences, ruleSettings, ids);
}

namespace {

void setFields(KRC_KrolleProject& view, const Krolle::Panel_t& panel, const QJsonObject& values)
{
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (!value.value().toString().isEmpty() && view.getFieldByName(true, value.key()) != INT_MAX)
            InfoFieldText::setPanelValue(view, panel, value.key(), value.value().toString());
    }
}

void setTracking(const Krolle::Panel_t& panel, const QJsonObject& facts)
{
    KRC_Tracking* tracking = panel.tracking();
    if (!tracking || !facts.value(QStringLiteral("tracked")).toBool())
        return;
    tracking->setIsTracked(true);
    tracking->setTrackingDate(QDateTime::fromString(facts.value(QStringLiteral("date")).toString(), Qt::ISODate));
    tracking->setTrackingNote(facts.value(QStringLiteral("note")).toString(QStringLiteral("")));
}

} // namespace

void ImportedBoard::applyPanelFacts(KRC_KrolleProject& view) const
{
    if (!panelFields.isEmpty())
        InfoFieldText::definePanelFields(view, panelFields);
    auto panel = view.beginPanel();
    for (const Shot& shot : shots) {
        for (int i = 0; i < shot.panelLengths.size(); ++i, ++panel) {
            if (i < shot.panelFields.size())
                setFields(view, *panel, shot.panelFields[i]);
            if (i < shot.panelTracking.size())
                setTracking(*panel, shot.panelTracking[i]);
        }
    }
}

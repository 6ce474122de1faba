#include "ImportedBoard.h"

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

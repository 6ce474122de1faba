#include "NamedObjects.h"

#include "ToolError.h"

#include "project/KRC_KrolleProject.h"

#include <QStringList>

namespace {

const QLatin1Char kNumberMark('#');
const QLatin1String kIdPrefix("0x");
const int kIdDigits = 16;

// "#3" -> 3; 0 when the text is no number address.
unsigned numberIn(const QString& address)
{
    if (!address.startsWith(kNumberMark))
        return 0;
    bool ok = false;
    const unsigned number = address.mid(1).toUInt(&ok, 10);
    if (!ok || number == 0 || address.at(1) == QLatin1Char('+'))
        throw ToolError::usage(QStringLiteral("'%1' is no number: write #1 for the first").arg(address));
    return number;
}

// "0x2a" -> the id; the null id when the text is no id address.
SC_Id idIn(const QString& address)
{
    if (!address.startsWith(kIdPrefix) || address.size() > kIdDigits + 2 || address.size() < 3)
        return SC_Id();
    bool ok = false;
    const quint64 value = address.mid(2).toULongLong(&ok, 16);
    return ok ? SC_Id(value) : SC_Id();
}

QString noNumber(const char* what, unsigned number, unsigned count, const QString& where)
{
    return QStringLiteral("there is no %1 #%2%3: there %4 %5")
        .arg(QLatin1String(what), QString::number(number), where,
            count == 1 ? QStringLiteral("is") : QStringLiteral("are"), QString::number(count));
}

QString noId(const char* what, const SC_Id& id)
{
    return QStringLiteral("no %1 has the id %2").arg(QLatin1String(what), id.toString());
}

// The failure for a name that several objects carry, listing them.
ToolError ambiguous(const QString& what, const QStringList& candidates, const QString& hint)
{
    return ToolError::failure(QStringLiteral("%1 is ambiguous: %2; %3")
                                  .arg(what, candidates.join(QStringLiteral(", ")), hint));
}

// The object found by a number or an id, which must exist.
template <class Handle> Handle existing(const Handle& found, const QString& failure)
{
    if (found.isInvalid())
        throw ToolError::failure(failure);
    return found;
}

QString candidate(const QString& label, unsigned number, const SC_Id& id)
{
    return QStringLiteral("%1 (#%2, %3)").arg(label, QString::number(number), id.toString());
}

} // namespace

Krolle::Shot_t NamedObjects::shot(const KRC_KrolleProject& view, const QString& address, const QString& sequence)
{
    if (const unsigned number = numberIn(address))
        return existing(view.getShotByNdx(number - 1), noNumber("shot", number, view.shotCount(), QString()));
    const SC_Id id = idIn(address);
    if (!id.isNull())
        return existing(view.getShotByID(id), noId("shot", id));
    const QString where = sequence.isNull() ? QString() : QStringLiteral(" in sequence \"%1\"").arg(sequence);
    Krolle::Shot_t found;
    QStringList candidates;
    unsigned number = 0;
    for (auto shot = view.beginShot(), end = view.endShot(); shot != end; ++shot) {
        ++number;
        if (shot->name() != address || (!sequence.isNull() && shot->sequenceName() != sequence))
            continue;
        found = *shot;
        candidates << candidate(shotLabel(view, found) + QStringLiteral(" in sequence \"%1\"").arg(found.sequenceName()),
            number, found.id());
    }
    if (found.isInvalid())
        throw ToolError::failure(QStringLiteral("no shot is named \"%1\"%2").arg(address, where));
    if (candidates.size() > 1)
        throw ambiguous(QStringLiteral("the shot name \"%1\"%2").arg(address, where), candidates,
            QStringLiteral("name one by its number or id, or its sequence with --sequence"));
    return found;
}

Krolle::Panel_t NamedObjects::panelByPath(const KRC_KrolleProject& view, const QString& address, const QString& option)
{
    const SC_Id id = idIn(address);
    if (!id.isNull())
        return existing(view.getPanelByID(id), noId("panel", id));
    const int slash = address.lastIndexOf(QLatin1Char('/'));
    if (slash <= 0 || slash == address.size() - 1)
        throw ToolError::usage(QStringLiteral("%1 takes SHOT/PANEL or a panel's id, not \"%2\"").arg(option, address));
    return panel(view, shot(view, address.left(slash), QString()), address.mid(slash + 1));
}

Krolle::Panel_t NamedObjects::shotOrPanel(
    const KRC_KrolleProject& view, const QString& address, Krolle::Shot_t& shot, const QString& what)
{
    const SC_Id id = idIn(address);
    if (address.contains(QLatin1Char('/')) || (!id.isNull() && view.getPanelByID(id).isValid())) {
        const Krolle::Panel_t found = panelByPath(view, address, what);
        shot = found.shot();
        return found;
    }
    shot = NamedObjects::shot(view, address, QString());
    return Krolle::Panel_t::invalid;
}

Krolle::Panel_t NamedObjects::panel(
    const KRC_KrolleProject& view, const Krolle::Shot_t& shot, const QString& address)
{
    const unsigned wanted = numberIn(address);
    const SC_Id id = idIn(address);
    Krolle::Panel_t found;
    QStringList candidates;
    unsigned number = 0;
    for (auto panel = view.beginPanel(shot), end = view.endPanel(shot); panel != end; ++panel) {
        ++number;
        const bool matches = wanted ? number == wanted : !id.isNull() ? panel->id() == id : panel->name() == address;
        if (!matches)
            continue;
        found = *panel;
        candidates << candidate(panelLabel(view, found), number, found.id());
    }
    if (wanted && found.isInvalid())
        throw ToolError::failure(noNumber("panel", wanted, number, QStringLiteral(" in ") + shotLabel(view, shot)));
    if (!id.isNull() && found.isInvalid())
        throw ToolError::failure(QStringLiteral("%1 has no panel with the id %2").arg(shotLabel(view, shot), id.toString()));
    if (found.isInvalid())
        throw ToolError::failure(
            QStringLiteral("no panel of %1 is named \"%2\"").arg(shotLabel(view, shot), address));
    if (candidates.size() > 1)
        throw ambiguous(QStringLiteral("the panel name \"%1\" in %2").arg(address, shotLabel(view, shot)),
            candidates, QStringLiteral("name one by its number or id"));
    return found;
}

Krolle::Trans_t NamedObjects::transition(const KRC_KrolleProject& view, const QString& address)
{
    if (const unsigned number = numberIn(address))
        return existing(
            view.getTransByNdx(number - 1), noNumber("transition", number, view.transCount(), QString()));
    const SC_Id id = idIn(address);
    if (id.isNull())
        throw ToolError::usage(
            QStringLiteral("--transition takes a transition's number (#1) or id, not \"%1\"").arg(address));
    return existing(view.getTransByID(id), noId("transition", id));
}

QString NamedObjects::shotLabel(const KRC_KrolleProject& view, const Krolle::Shot_t& shot)
{
    return QStringLiteral("shot %1 \"%2\"").arg(QString::number(view.getShotNdx(shot) + 1), shot.name());
}

QString NamedObjects::panelLabel(const KRC_KrolleProject& view, const Krolle::Panel_t& panel)
{
    return QStringLiteral("panel %1 \"%2\" of %3")
        .arg(QString::number(view.getPanelNdx(panel, true) + 1), panel.name(), shotLabel(view, panel.shot()));
}

QString NamedObjects::transitionLabel(const KRC_KrolleProject& view, const Krolle::Trans_t& transition)
{
    unsigned number = 1;
    for (Krolle::Trans_t before = view.prev(transition); before.isValid(); before = view.prev(before))
        ++number;
    return QStringLiteral("transition %1 \"%2\"").arg(QString::number(number), transition.name());
}

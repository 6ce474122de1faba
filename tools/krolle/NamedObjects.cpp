#include "NamedObjects.h"

#include "ToolError.h"

#include "project/KRC_KrolleProject.h"

Krolle::Shot_t NamedObjects::shot(const KRC_KrolleProject& view, const QString& name, const QString& sequence)
{
    const QString where = sequence.isNull() ? QString() : QStringLiteral(" in sequence \"%1\"").arg(sequence);
    const Krolle::Shot_t found = view.getShotByName(name, sequence.isNull() ? QString() : sequence, false);
    if (found.isInvalid())
        throw ToolError::failure(QStringLiteral("no shot is named \"%1\"%2").arg(name, where));
    for (Krolle::Shot_t other = view.next(found); other.isValid(); other = view.next(other)) {
        if (other.name() == name && (sequence.isNull() || other.sequenceName() == sequence))
            throw ToolError::failure(
                QStringLiteral("%1 and %2 are both named \"%3\"%4; name the sequence with --sequence")
                    .arg(shotLabel(view, found), shotLabel(view, other), name, where));
    }
    return found;
}

Krolle::Panel_t NamedObjects::panelByPath(const KRC_KrolleProject& view, const QString& path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    if (slash <= 0 || slash == path.size() - 1)
        throw ToolError::usage(QStringLiteral("--panel takes SHOT/PANEL, not \"%1\"").arg(path));
    return panel(view, shot(view, path.left(slash), QString()), path.mid(slash + 1));
}

Krolle::Panel_t NamedObjects::panel(
    const KRC_KrolleProject& view, const Krolle::Shot_t& shot, const QString& name)
{
    Krolle::Panel_t found;
    for (auto panel = view.beginPanel(shot), end = view.endPanel(shot); panel != end; ++panel) {
        if (panel->name() != name)
            continue;
        if (found.isValid())
            throw ToolError::failure(QStringLiteral("%1 and %2 are both named \"%3\"")
                                         .arg(panelLabel(view, found), panelLabel(view, *panel), name));
        found = *panel;
    }
    if (found.isInvalid())
        throw ToolError::failure(
            QStringLiteral("no panel of %1 is named \"%2\"").arg(shotLabel(view, shot), name));
    return found;
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

#include "ChosenObject.h"

#include "ArgumentParser.h"
#include "NamedObjects.h"
#include "ObjectJson.h"

#include "project/KRC_KrolleProject.h"

namespace {

const QString kShot = QStringLiteral("--shot");
const QString kPanel = QStringLiteral("--panel");
const QString kTransition = QStringLiteral("--transition");

QStringList optionsOf(int kinds)
{
    QStringList options;
    if (kinds & ChosenObject::Shot)
        options << kShot;
    if (kinds & ChosenObject::Panel)
        options << kPanel;
    if (kinds & ChosenObject::Transition)
        options << kTransition;
    return options;
}

} // namespace

ChosenObject::ChosenObject(
    Kind kind, const Krolle::Shot_t& shot, const Krolle::Panel_t& panel, const Krolle::Trans_t& transition)
    : m_kind(kind)
    , m_shot(shot)
    , m_panel(panel)
    , m_transition(transition)
{
}

void ChosenObject::declare(ArgumentParser& parser, const QString& verb, int kinds)
{
    if (kinds & Shot)
        parser.addOption(kShot, QStringLiteral("SHOT"),
            QStringLiteral("%1 this shot: its name, #number or id").arg(verb));
    if (kinds & Panel)
        parser.addOption(kPanel, QStringLiteral("SHOT/PANEL"),
            QStringLiteral("%1 this panel: names or #numbers of its shot and itself, or its id").arg(verb));
    if (kinds & Transition)
        parser.addOption(kTransition, QStringLiteral("TRANSITION"),
            QStringLiteral("%1 this transition: its #number or id").arg(verb));
}

ChosenObject ChosenObject::read(const KRC_KrolleProject& view, const ArgumentValues& arguments, int kinds)
{
    const QString option = arguments.exactlyOne(optionsOf(kinds));
    const QString address = arguments.value(option);
    if (option == kShot)
        return ChosenObject(Shot, NamedObjects::shot(view, address, QString()), {}, {});
    if (option == kPanel)
        return ChosenObject(Panel, {}, NamedObjects::panelByPath(view, address), {});
    return ChosenObject(Transition, {}, {}, NamedObjects::transition(view, address));
}

QString ChosenObject::kindName() const
{
    switch (m_kind) {
    case Shot:
        return QStringLiteral("shot");
    case Panel:
        return QStringLiteral("panel");
    case Transition:
        break;
    }
    return QStringLiteral("transition");
}

SC_Id ChosenObject::id() const
{
    return apply([](const auto& handle) { return handle.id(); });
}

unsigned ChosenObject::firstFrame() const
{
    return apply([](const auto& handle) { return handle.firstFrame(); });
}

unsigned ChosenObject::lastFrame() const
{
    return apply([](const auto& handle) { return handle.lastFrame(); });
}

bool ChosenObject::isValid() const
{
    return m_shot.isValid() || m_panel.isValid() || m_transition.isValid();
}

ChosenObject ChosenObject::again(const KRC_KrolleProject& view) const
{
    const SC_Id id = this->id();
    return ChosenObject(m_kind, m_kind == Shot ? view.getShotByID(id) : Krolle::Shot_t(),
        m_kind == Panel ? view.getPanelByID(id) : Krolle::Panel_t(),
        m_kind == Transition ? view.getTransByID(id) : Krolle::Trans_t());
}

QString ChosenObject::label(const KRC_KrolleProject& view) const
{
    // A panel moved or pushed past the frames its shot's warp shows is no longer in the view.
    if (!isValid())
        return QStringLiteral("%1 %2, which its shot does not show").arg(kindName(), id().toString());
    switch (m_kind) {
    case Shot:
        return NamedObjects::shotLabel(view, m_shot);
    case Panel:
        return NamedObjects::panelLabel(view, m_panel);
    case Transition:
        break;
    }
    return NamedObjects::transitionLabel(view, m_transition);
}

QJsonValue ChosenObject::json(const ObjectJson& objects) const
{
    switch (m_kind) {
    case Shot:
        return objects.shot(m_shot);
    case Panel:
        return objects.panel(m_panel);
    case Transition:
        break;
    }
    return objects.transition(m_transition);
}

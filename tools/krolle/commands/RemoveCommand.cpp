#include "RemoveCommand.h"

#include "ChosenObject.h"
#include "ObjectJson.h"
#include "ProjectDocument.h"

#include "host/engine/HostEngine.h"
#include "project/KRC_KrolleProject.h"

RemoveCommand::RemoveCommand(const QString& name, const QString& summary, int kinds)
    : EditCommand(name, summary)
    , m_kinds(kinds)
{
    ArgumentParser& parser = declare();
    ChosenObject::declare(parser, QStringLiteral("remove"), kinds);
    parser.setEpilogue(QStringLiteral(
        "Automatic names after the removed object move up; they are listed.\n"
        "\n"
        "example: krolle %1 demo.xml %2")
                           .arg(name,
                               kinds & ChosenObject::Shot ? QStringLiteral("--shot SH030 --dry-run")
                                                          : QStringLiteral("--transition '#1'")));
}

EditCommand::Outcome RemoveCommand::edit(ProjectDocument& document, const ArgumentValues& arguments)
{
    const KRC_KrolleProject& view = document.view();
    const ChosenObject chosen = ChosenObject::read(view, arguments, m_kinds);
    // Said before the edit: the handle does not outlive it.
    const QString sentence = QStringLiteral("removed %1 (%2, frames %3-%4)")
                                 .arg(chosen.label(view), chosen.id().toString(),
                                     QString::number(chosen.firstFrame()), QString::number(chosen.lastFrame()));
    const QJsonValue removed = chosen.json(ObjectJson(view, Timecode()));
    SC_Project* project = document.project();
    QString error;
    bool done = false;
    if (chosen.kind() == ChosenObject::Shot)
        done = HostAuthoring::removeShot(project, chosen.id(), &error);
    else if (chosen.kind() == ChosenObject::Panel)
        done = HostAuthoring::removePanel(project, chosen.id(), &error);
    else
        done = HostAuthoring::removeTransition(project, chosen.id(), &error);
    if (!done)
        refused(QStringLiteral("remove ") + chosen.label(view), error);
    document.notify();
    return { sentence,
        QJsonObject { { QStringLiteral("kind"), chosen.kindName() }, { QStringLiteral("removed"), removed } } };
}

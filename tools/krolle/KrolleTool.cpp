#include "KrolleTool.h"

#include "ChosenObject.h"
#include "Command.h"
#include "Console.h"
#include "NearestWord.h"
#include "TextTable.h"

#include "commands/AddTransitionCommand.h"
#include "commands/AtCommand.h"
#include "commands/CameraCommand.h"
#include "commands/ChangesCommand.h"
#include "commands/CheckCommand.h"
#include "commands/CompletionCommand.h"
#include "commands/DefaultsCommand.h"
#include "commands/DemoCommand.h"
#include "commands/DrawingsCommand.h"
#include "commands/ExportCommand.h"
#include "commands/FieldsCommand.h"
#include "commands/ImportCommand.h"
#include "commands/ImportImagesCommand.h"
#include "commands/InsertPanelCommand.h"
#include "commands/InsertShotCommand.h"
#include "commands/LayersCommand.h"
#include "commands/LockNamesCommand.h"
#include "commands/ManCommand.h"
#include "commands/MoveCommand.h"
#include "commands/NewCommand.h"
#include "commands/OutlineCommand.h"
#include "commands/PdfCommand.h"
#include "commands/RemoveCommand.h"
#include "commands/RenameCommand.h"
#include "commands/RulesCommand.h"
#include "commands/SetCommand.h"
#include "commands/SetLengthCommand.h"
#include "commands/ShowCommand.h"
#include "commands/SketchesCommand.h"
#include "commands/TrackCommand.h"

#include <new>

namespace {

const char* const kVersionText = "krolle " KROLLE_VERSION "\n";

const int kInternalErrorStatus = 70;

} // namespace

KrolleTool::KrolleTool()
{
    m_commands.emplace_back(new DemoCommand);
    m_commands.emplace_back(new NewCommand);
    m_commands.emplace_back(new OutlineCommand);
    m_commands.emplace_back(new AtCommand);
    m_commands.emplace_back(new RulesCommand);
    m_commands.emplace_back(new InsertShotCommand);
    m_commands.emplace_back(new InsertPanelCommand);
    m_commands.emplace_back(new CheckCommand);
    m_commands.emplace_back(new ExportCommand);
    m_commands.emplace_back(new ImportCommand);
    // Info fields.
    m_commands.emplace_back(new FieldsCommand);
    m_commands.emplace_back(new SetCommand);
    // Panel layers.
    m_commands.emplace_back(new LayersCommand);
    // Camera.
    m_commands.emplace_back(new CameraCommand);
    // Layer selection and drawings.
    m_commands.emplace_back(new DrawingsCommand);
    m_commands.emplace_back(new DefaultsCommand);
    // Change tracking.
    m_commands.emplace_back(new TrackCommand);
    m_commands.emplace_back(new ChangesCommand);
    // Image boards and printed pages.
    m_commands.emplace_back(new ImportImagesCommand);
    m_commands.emplace_back(new PdfCommand);
    m_commands.emplace_back(new SketchesCommand);
    // Edits and addresses.
    m_commands.emplace_back(new ShowCommand);
    m_commands.emplace_back(new RenameCommand);
    m_commands.emplace_back(new LockNamesCommand);
    m_commands.emplace_back(new RemoveCommand(QStringLiteral("remove"),
        QStringLiteral("remove a shot, panel or transition"),
        ChosenObject::Shot | ChosenObject::Panel | ChosenObject::Transition));
    m_commands.emplace_back(new MoveCommand);
    m_commands.emplace_back(new SetLengthCommand);
    m_commands.emplace_back(new AddTransitionCommand);
    m_commands.emplace_back(new RemoveCommand(
        QStringLiteral("remove-transition"), QStringLiteral("remove a transition"), ChosenObject::Transition));
    // The tool's own description, made from the declarations above.
    m_commands.emplace_back(new CompletionCommand(m_commands));
    m_commands.emplace_back(new ManCommand(m_commands));
}

KrolleTool::~KrolleTool() = default;

QString KrolleTool::helpText() const
{
    TextTable commands;
    commands.setIndent(2);
    for (const auto& command : m_commands)
        commands.addRow({ command->name(), command->parser().summary() });
    return QStringLiteral("usage: krolle <command> [arguments] [options]\n"
                          "       krolle --help | help <command> | --version | -V | version\n"
                          "\n"
                          "A command-line front end over storyboard project files.\n"
                          "\n"
                          "commands:\n")
        + commands.toString()
        + QStringLiteral("\n"
                         "'krolle <command> --help' tells more about one command.\n"
                         "Exit status: 0 done, 1 findings or a request the project cannot satisfy,\n"
                         "2 bad, missing or unwritable file, 64 bad usage.\n");
}

Command* KrolleTool::find(const QString& name) const
{
    for (const auto& command : m_commands) {
        if (command->name() == name)
            return command.get();
    }
    return nullptr;
}

ExitStatus KrolleTool::dispatch(const QStringList& arguments)
{
    const QString first = arguments.value(0);
    if (first == QLatin1String("--help") || first == QLatin1String("-h") || first == QLatin1String("help")) {
        if (arguments.size() < 2) {
            Console::out(helpText());
            return ExitStatus::Success;
        }
        Console::out(known(arguments.at(1))->parser().helpText());
        return ExitStatus::Success;
    }
    if (first == QLatin1String("--version") || first == QLatin1String("-V") || first == QLatin1String("version")) {
        Console::out(QString::fromUtf8(kVersionText));
        return ExitStatus::Success;
    }
    return known(first)->execute(arguments.mid(1));
}

Command* KrolleTool::known(const QString& name) const
{
    if (Command* command = find(name))
        return command;
    QStringList names;
    for (const auto& command : m_commands)
        names << command->name();
    const QString hint = name.startsWith(QLatin1Char('-'))
        ? NearestWord::hint(name, { QStringLiteral("--help"), QStringLiteral("--version") })
        : NearestWord::hint(name, names);
    throw ToolError::usage(QStringLiteral("unknown command '%1'%2").arg(name, hint));
}

int KrolleTool::run(const QStringList& arguments)
{
    if (arguments.isEmpty()) {
        Console::err(helpText());
        return static_cast<int>(ExitStatus::BadUsage);
    }
    const QString command
        = find(arguments.first()) ? QStringLiteral("krolle ") + arguments.first() : QStringLiteral("krolle");
    try {
        const ExitStatus status = dispatch(arguments);
        if (!Console::flushOut())
            throw ToolError::file(QStringLiteral("cannot write to standard output"));
        return static_cast<int>(status);
    } catch (const ToolError& error) {
        QString line = QStringLiteral("%1: %2").arg(command, error.message());
        if (error.status() == ExitStatus::BadUsage)
            line += QStringLiteral(" (see %1 --help)").arg(command);
        Console::err(line + QLatin1Char('\n'));
        return static_cast<int>(error.status());
    } catch (const std::bad_alloc&) {
        Console::err(command + QStringLiteral(": out of memory\n"));
        return kInternalErrorStatus;
    }
}

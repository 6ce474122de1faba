#include "Command.h"

#include "Console.h"
#include "ProjectDocument.h"
#include "ToolEnvironment.h"

#include <QFileInfo>

Command::Command(const QString& name, const QString& summary)
    : m_name(name)
    , m_parser(QStringLiteral("krolle ") + name)
{
    m_parser.setSummary(summary);
    m_parser.setDescription(summary);
}

Command::~Command() = default;

ExitStatus Command::execute(const QStringList& arguments)
{
    const ArgumentValues values = m_parser.parse(arguments);
    if (values.helpRequested()) {
        Console::out(m_parser.helpText());
        return ExitStatus::Success;
    }
    ToolEnvironment environment;
    return run(values);
}

void Command::refuseToOverwrite(const QString& path, const ArgumentValues& arguments)
{
    if (QFileInfo::exists(path) && !arguments.isSet(QStringLiteral("--force")))
        throw ToolError::failure(QStringLiteral("%1 already exists; choose another name or add --force").arg(path));
}

void Command::reportWritten(const QString& path, const QString& report)
{
    if (ProjectDocument::isStandardStream(path))
        Console::err(report);
    else
        Console::out(report);
}

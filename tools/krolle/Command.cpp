#include "Command.h"

#include "Console.h"
#include "ToolEnvironment.h"

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

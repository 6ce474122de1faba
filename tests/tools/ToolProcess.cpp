#include "ToolProcess.h"

#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

namespace {

const int kTimeoutMs = 120000;

QString dataPath(const QString& name)
{
    return QStringLiteral(KROLLE_TEST_DATA_DIR "/") + name;
}

} // namespace

ToolSandbox::ToolSandbox()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    m_environment.remove(QStringLiteral("KROLLE_PREFERENCES"));
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    // Tracking dates written by the tool's edits, the same on every run.
    m_environment.insert(QStringLiteral("KROLLE_NOW"), QStringLiteral("2026-03-10T09:30:00"));
}

QString ToolSandbox::path(const QString& name) const
{
    return m_dir.filePath(name);
}

void ToolSandbox::setEnvironment(const QString& name, const QString& value)
{
    m_environment.insert(name, value);
}

void ToolSandbox::unsetEnvironment(const QString& name)
{
    m_environment.remove(name);
}

ToolRun ToolSandbox::run(const QStringList& arguments, const QString& input) const
{
    QProcess process;
    process.setWorkingDirectory(m_dir.path());
    if (!input.isNull())
        process.setStandardInputFile(path(input));
    process.setProcessEnvironment(m_environment);
    process.start(QStringLiteral(KROLLE_TOOL_PATH), arguments);
    ToolRun result;
    if (!process.waitForStarted(kTimeoutMs) || !process.waitForFinished(kTimeoutMs)) {
        ADD_FAILURE() << "the tool did not run to its end: " << arguments.join(' ').toStdString();
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

QString ToolSandbox::transcript(const std::vector<QStringList>& commandLines) const
{
    QString shown;
    for (const QStringList& arguments : commandLines) {
        const ToolRun result = run(arguments);
        shown += QStringLiteral("$ krolle %1\n").arg(arguments.join(' ')) + result.out;
        QStringList lines = result.err.split('\n');
        const QString unterminated = lines.takeLast();
        if (!unterminated.isEmpty())
            lines << unterminated + QStringLiteral(" [no end of line]");
        for (const QString& line : lines)
            shown += QStringLiteral("2> %1\n").arg(line);
        if (result.exitCode != 0)
            shown += QStringLiteral("[exit %1]\n").arg(result.exitCode);
    }
    return shown;
}

void ToolSandbox::copyData(const QString& name) const
{
    QFile::remove(path(name));
    ASSERT_TRUE(QFile::copy(dataPath(name), path(name))) << name.toStdString();
    QFile::setPermissions(path(name), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

QByteArray ToolSandbox::read(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void ToolSandbox::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

QString goldenText(const QString& name, const QString& actual)
{
    QFile file(dataPath(name));
    if (qgetenv("KROLLE_UPDATE_GOLDEN") == "1" && file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        file.write(actual.toUtf8());
        file.close();
    }
    if (!file.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "missing golden file " << name.toStdString()
                      << " (run with KROLLE_UPDATE_GOLDEN=1 to create it)";
        return QString();
    }
    return QString::fromUtf8(file.readAll());
}

void expectTranscript(
    const ToolSandbox& sandbox, const std::vector<QStringList>& commandLines, const QString& golden)
{
    const QString shown = sandbox.transcript(commandLines);
    EXPECT_EQ(shown, goldenText(golden, shown)) << golden.toStdString();
}

// Runs the krolle tool as a child process and compares what it prints with golden files.
#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <ostream>
#include <vector>

// Readable QStrings in test failure messages.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

// The outcome of one run of the tool.
struct ToolRun
{
    int exitCode = -1;
    QString out;
    QString err;
};

// A scratch directory in which the tool runs, so that file names in its
// output are the short relative names the tests pass and golden files do not
// depend on where the tests run. Preferences come from an empty store unless
// a test sets KROLLE_PREFERENCES.
class ToolSandbox
{
public:
    ToolSandbox();

    QString path(const QString& name) const;
    // input: a file of the sandbox to give as standard input, or none.
    ToolRun run(const QStringList& arguments, const QString& input = QString()) const;
    // Runs the command lines in turn and answers them as a terminal session shows them:
    // "$ krolle ARGS", standard output, standard error with each line behind "2> ", and
    // "[exit N]" when N is not 0. One golden file then holds a whole table of cases.
    QString transcript(const std::vector<QStringList>& commandLines) const;
    void setEnvironment(const QString& name, const QString& value);
    void unsetEnvironment(const QString& name);
    // Copies a file of tests/tools/data into the sandbox under the same name.
    void copyData(const QString& name) const;
    QByteArray read(const QString& name) const;
    void write(const QString& name, const QByteArray& bytes) const;

private:
    QTemporaryDir m_dir;
    QProcessEnvironment m_environment;
};

// The text of tests/tools/data/<name>. With KROLLE_UPDATE_GOLDEN=1 in the
// environment the file is first rewritten with actual, so that an intended
// change of output is one test run away; the diff then shows in review.
QString goldenText(const QString& name, const QString& actual);

// The transcript of the command lines equals tests/tools/data/<golden>.
void expectTranscript(
    const ToolSandbox& sandbox, const std::vector<QStringList>& commandLines, const QString& golden);

// The tool's standard output and standard error.
#pragma once

#include <QJsonObject>
#include <QString>

// Writes UTF-8 text to standard output or standard error, unbuffered enough
// that an error never appears before output that came first. Also answers
// whether standard error is a terminal (the progress bar shows only then).
// JSON objects print with their keys in alphabetical order (QJsonDocument's),
// which keeps the output stable from run to run.
class Console
{
public:
    static void out(const QString& text);
    // Flushes standard output; false when anything written to it was lost.
    static bool flushOut();
    static void err(const QString& text);
    // One JSON document, indented, ending with a line end.
    static void outJson(const QJsonObject& document);
    static bool stderrIsTerminal();
    // All of standard input, read to its end.
    static QByteArray readIn();
};

// The tool's standard output and standard error.
#pragma once

#include <QString>

// Writes UTF-8 text to standard output or standard error, unbuffered enough
// that an error never appears before output that came first. Also answers
// whether standard error is a terminal (the progress bar shows only then).
class Console
{
public:
    static void out(const QString& text);
    static void err(const QString& text);
    static bool stderrIsTerminal();
};

// What every fuzz target needs: a check that stops the run where it fails, and quiet.
#pragma once

#include <QtGlobal>

#include <cstdlib>

namespace fuzz {

/// Aborts, which the fuzzer reports as a finding with its input, when `condition` fails.
inline void check(bool condition)
{
    if (!condition)
        std::abort();
}

/// Drops Qt's messages: a refused input is expected, and printing it slows the run.
inline void quiet()
{
    qInstallMessageHandler([](QtMsgType, QMessageLogContext const&, QString const&) {});
}

} // namespace fuzz

// Translation helpers of the stand-in base library.
#pragma once

#include <QString>

/// Translation of `text` under `context` through the translators installed in the
/// application (QCoreApplication::translate; works without an application too). When
/// no translator knows the text, the source text itself comes back, decoded as Latin-1
/// or UTF-8 according to the function's name. Host's thread, like Qt's translators.
QString MISC_translateFromLatin1(
    char const* context, char const* text, char const* disambiguation = nullptr, int n = -1);
QString MISC_translateFromUtf8(
    char const* context, char const* text, char const* disambiguation = nullptr, int n = -1);

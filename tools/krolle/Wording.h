// Small pieces of English shared by the tool's messages.
#pragma once

#include <QString>

class Wording
{
public:
    // "1 panel", "3 panels".
    static QString counted(unsigned long long count, const char* singular, const char* plural)
    {
        return QString::number(count) + QLatin1Char(' ') + QLatin1String(count == 1 ? singular : plural);
    }
};

// The order in which people number their drawings.
#pragma once

#include <QString>

// Compares file names as a person reads them: runs of digits by their value, so
// "p2" comes before "p10"; other text without regard to case. Names that only
// differ in case or in leading zeros still get a fixed order, so sorting is
// total and the same on every machine (no locale is consulted). Pure function.
class NaturalOrder
{
public:
    static int compare(const QString& a, const QString& b);
    static bool less(const QString& a, const QString& b) { return compare(a, b) < 0; }
};

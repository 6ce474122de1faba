// Exact text form of doubles, shared by every stand-in library that writes numbers.
#pragma once

#include <QString>

/// The shortest text that QString::toDouble reads back to the same bits: "-0" keeps
/// its sign, and the special values are "nan", "inf" and "-inf".
QString UT_doubleToText(double value);

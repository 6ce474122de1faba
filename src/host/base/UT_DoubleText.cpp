#include "host/base/UT_DoubleText.h"

#include <QLocale>

#include <cmath>

QString UT_doubleToText(double value)
{
    if (std::isnan(value))
        return QStringLiteral("nan");
    if (std::isinf(value))
        return value > 0 ? QStringLiteral("inf") : QStringLiteral("-inf");
    // Qt prints a negative zero as "0".
    if (value == 0.0 && std::signbit(value))
        return QStringLiteral("-0");
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

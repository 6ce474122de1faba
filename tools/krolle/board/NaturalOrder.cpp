#include "NaturalOrder.h"

namespace {

// The end of the run of digits (or of other characters) that starts at `from`.
int runEnd(const QString& text, int from)
{
    const bool digits = text.at(from).isDigit();
    int end = from;
    while (end < text.size() && text.at(end).isDigit() == digits)
        ++end;
    return end;
}

// Two runs of digits by value: without leading zeros, the longer is larger.
int compareNumbers(const QStringRef& a, const QStringRef& b)
{
    auto stripped = [](const QStringRef& run) {
        int zeros = 0;
        while (zeros + 1 < run.size() && run.at(zeros) == QLatin1Char('0'))
            ++zeros;
        return run.mid(zeros);
    };
    const QStringRef x = stripped(a);
    const QStringRef y = stripped(b);
    if (x.size() != y.size())
        return x.size() < y.size() ? -1 : 1;
    return x.compare(y);
}

int sign(int value)
{
    return (value > 0) - (value < 0);
}

} // namespace

int NaturalOrder::compare(const QString& a, const QString& b)
{
    int i = 0;
    int j = 0;
    while (i < a.size() && j < b.size()) {
        const int endA = runEnd(a, i);
        const int endB = runEnd(b, j);
        const QStringRef runA = a.midRef(i, endA - i);
        const QStringRef runB = b.midRef(j, endB - j);
        const bool numbers = a.at(i).isDigit() && b.at(j).isDigit();
        const int order = numbers ? compareNumbers(runA, runB) : runA.compare(runB, Qt::CaseInsensitive);
        if (order != 0)
            return sign(order);
        i = endA;
        j = endB;
    }
    if (i < a.size() || j < b.size())
        return i < a.size() ? 1 : -1;
    // Equal to a reader ("p01" and "p1", "A" and "a"): plain order decides.
    return sign(a.compare(b));
}

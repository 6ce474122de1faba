// A progress bar on standard error for long steps (loading, generating, saving).
#pragma once

#include <QString>

// Draws "label [#####.....]  42%" on one line of standard error, redrawn only
// when the percentage changes, and erases it when done (or destroyed). It
// draws nothing when standard error is not a terminal, so pipes, logs and
// tests see clean output, nor for steps too small to be worth it.
// A total of 0 means the amount of work is unknown: the label alone shows
// while the step runs. Single-threaded; one bar at a time.
class ProgressBar
{
public:
    ProgressBar(const QString& label, unsigned long long total);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void advance(unsigned long long steps = 1);
    void setValue(unsigned long long value);
    // Erases the bar; later calls do nothing.
    void done();

    // Work below this many steps shows no bar.
    static const unsigned long long kMinimumTotal = 2000;

private:
    void draw(int percent);

    QString m_label;
    unsigned long long m_total;
    unsigned long long m_value = 0;
    int m_shownPercent = -1;
    bool m_active;
};

#include "ProgressBar.h"

#include "Console.h"

namespace {

const int kBarWidth = 30;

} // namespace

ProgressBar::ProgressBar(const QString& label, unsigned long long total)
    : m_label(label)
    , m_total(total)
    , m_active(Console::stderrIsTerminal() && (total == 0 || total >= kMinimumTotal))
{
    if (m_active)
        draw(0);
}

ProgressBar::~ProgressBar()
{
    done();
}

void ProgressBar::advance(unsigned long long steps)
{
    setValue(m_value + steps);
}

void ProgressBar::setValue(unsigned long long value)
{
    m_value = value;
    if (!m_active || m_total == 0)
        return;
    const int percent = static_cast<int>(qMin<unsigned long long>(100, m_value * 100 / m_total));
    if (percent != m_shownPercent)
        draw(percent);
}

void ProgressBar::done()
{
    if (!m_active)
        return;
    m_active = false;
    Console::err(QStringLiteral("\r\033[K"));
}

void ProgressBar::draw(int percent)
{
    m_shownPercent = percent;
    if (m_total == 0) {
        Console::err(QStringLiteral("\r%1 ...").arg(m_label));
        return;
    }
    const int filled = percent * kBarWidth / 100;
    Console::err(
        QStringLiteral("\r%1 [%2%3] %4%")
            .arg(m_label, QString(filled, QLatin1Char('#')), QString(kBarWidth - filled, QLatin1Char('.')),
                QString::number(percent).rightJustified(3)));
}

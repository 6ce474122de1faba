#include "TextTable.h"

namespace {

const int kGap = 2;

QString rightTrimmed(QString line)
{
    int end = line.size();
    while (end > 0 && line.at(end - 1) == QLatin1Char(' '))
        --end;
    line.truncate(end);
    return line;
}

} // namespace

void TextTable::setHeader(const QStringList& header)
{
    m_header = header;
}

void TextTable::setAlignment(int column, Align align)
{
    if (m_align.size() <= column)
        m_align.resize(column + 1);
    m_align[column] = align;
}

void TextTable::setIndent(int spaces)
{
    m_indent = spaces;
}

void TextTable::addRow(const QStringList& cells)
{
    m_rows.append({ cells, false });
}

void TextTable::addHeading(const QString& line)
{
    m_rows.append({ QStringList { line }, true });
}

QVector<int> TextTable::columnWidths() const
{
    QVector<int> widths;
    auto widen = [&widths](const QStringList& cells) {
        if (widths.size() < cells.size())
            widths.resize(cells.size());
        for (int column = 0; column < cells.size(); ++column)
            widths[column] = qMax(widths[column], cells.at(column).size());
    };
    widen(m_header);
    for (const Row& row : m_rows) {
        if (!row.heading)
            widen(row.cells);
    }
    return widths;
}

QString TextTable::formatRow(const QStringList& cells, const QVector<int>& widths) const
{
    QString line(m_indent, QLatin1Char(' '));
    for (int column = 0; column < cells.size(); ++column) {
        const bool right = column < m_align.size() && m_align.at(column) == Align::Right;
        const QString& cell = cells.at(column);
        line += right ? cell.rightJustified(widths.at(column)) : cell.leftJustified(widths.at(column));
        if (column + 1 < cells.size())
            line += QString(kGap, QLatin1Char(' '));
    }
    return rightTrimmed(line) + QLatin1Char('\n');
}

QString TextTable::toString() const
{
    const QVector<int> widths = columnWidths();
    QString text;
    if (!m_header.isEmpty()) {
        text += formatRow(m_header, widths);
        QStringList rules;
        for (int column = 0; column < m_header.size(); ++column)
            rules << QString(widths.at(column), QLatin1Char('-'));
        text += formatRow(rules, widths);
    }
    for (const Row& row : m_rows)
        text += row.heading ? QString(m_indent, QLatin1Char(' ')) + row.cells.first() + QLatin1Char('\n')
                            : formatRow(row.cells, widths);
    return text;
}

// Aligned plain-text tables for the human-readable output of the tool.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// Collects rows of cells and prints them in aligned columns, two spaces
// apart, with an optional header row underlined by dashes. Columns are
// left-aligned unless set right-aligned (numbers). Widths count characters
// (QString length), which is right for the Latin text the tool prints.
// Trailing blanks are never printed. A plain value; single-threaded.
class TextTable
{
public:
    enum class Align
    {
        Left,
        Right
    };

    void setHeader(const QStringList& header);
    void setAlignment(int column, Align align);
    void setIndent(int spaces);
    void addRow(const QStringList& cells);
    // A line printed as it stands between rows (a group heading); it does not widen the columns.
    void addHeading(const QString& line);

    bool isEmpty() const { return m_rows.isEmpty(); }
    QString toString() const;

private:
    struct Row
    {
        QStringList cells;
        bool heading;
    };

    QVector<int> columnWidths() const;
    QString formatRow(const QStringList& cells, const QVector<int>& widths) const;

    QStringList m_header;
    QVector<Align> m_align;
    QVector<Row> m_rows;
    int m_indent = 0;
};

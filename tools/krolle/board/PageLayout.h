// Where things stand on a printed page of panels.
#pragma once

#include <QRectF>

// The geometry of one page of a printed board, in the painter's units (device
// pixels inside the page margins): a header strip across the top, then a grid
// of `columns` x `rows` cells, each with a picture box of the board's aspect
// across its top and the caption below. The picture box takes the cell's width
// unless that would leave the caption too little room. A value; pure geometry.
class PageLayout
{
public:
    // `width` and `height`: the paintable area; `unit`: device pixels per millimetre.
    PageLayout(double width, double height, double unit, int columns, int rows);

    int cellsPerPage() const { return m_columns * m_rows; }
    QRectF header() const;
    // Cell `index` of the page, counted along the rows.
    QRectF cell(int index) const;
    QRectF picture(const QRectF& cell) const;
    QRectF caption(const QRectF& cell) const;
    // Device pixels per millimetre.
    double unit() const { return m_unit; }

    // Width over height of the picture box.
    static constexpr double kAspect = 16.0 / 9.0;

private:
    double m_width;
    double m_height;
    double m_unit;
    int m_columns;
    int m_rows;
};

#include "PageLayout.h"

#include <QtGlobal>

namespace {

const double kHeaderMillimetres = 10.0;
const double kGapMillimetres = 5.0;
// The picture never takes more of a cell's height than this, so a caption always has room.
const double kMostPictureShare = 0.62;

} // namespace

PageLayout::PageLayout(double width, double height, double unit, int columns, int rows)
    : m_width(width)
    , m_height(height)
    , m_unit(unit)
    , m_columns(qMax(1, columns))
    , m_rows(qMax(1, rows))
{
}

QRectF PageLayout::header() const
{
    return QRectF(0, 0, m_width, kHeaderMillimetres * m_unit);
}

QRectF PageLayout::cell(int index) const
{
    const double gap = kGapMillimetres * m_unit;
    const double top = header().bottom() + gap / 2;
    const double width = (m_width - gap * (m_columns - 1)) / m_columns;
    const double height = (m_height - top - gap * (m_rows - 1)) / m_rows;
    const int column = index % m_columns;
    const int row = index / m_columns;
    return QRectF(column * (width + gap), top + row * (height + gap), width, height);
}

QRectF PageLayout::picture(const QRectF& cell) const
{
    double width = cell.width();
    double height = width / kAspect;
    if (height > cell.height() * kMostPictureShare) {
        height = cell.height() * kMostPictureShare;
        width = height * kAspect;
    }
    return QRectF(cell.left() + (cell.width() - width) / 2, cell.top(), width, height);
}

QRectF PageLayout::caption(const QRectF& cell) const
{
    const double top = picture(cell).bottom() + m_unit;
    return QRectF(cell.left(), top, cell.width(), cell.bottom() - top);
}

#include "SampleSketch.h"

#include <QPainter>

namespace {

// Panels of the k-th shot (from 0): 2, 3, 4, 2, 3, 4...
unsigned panelsOfShot(unsigned shot)
{
    return 2 + shot % 3;
}

QColor colourOf(unsigned number)
{
    return QColor::fromHsv(int(number * 47 % 360), 140, 200);
}

} // namespace

QImage SampleSketch::draw(unsigned number, const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(0xfa, 0xf8, 0xf2));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const double w = size.width();
    const double h = size.height();
    painter.setPen(QPen(QColor(0x30, 0x30, 0x30), qMax(1.0, h / 150)));
    // A horizon, a sun and a figure, each placed by the number.
    const double horizon = h * (0.55 + 0.1 * (number % 3));
    painter.drawLine(QPointF(0, horizon), QPointF(w, horizon));
    painter.setBrush(colourOf(number));
    const double sun = h * 0.12;
    painter.drawEllipse(QPointF(w * (0.15 + 0.7 * ((number * 37) % 100) / 100.0), h * 0.22), sun, sun);
    painter.setBrush(colourOf(number + 5));
    const double figure = w * (0.2 + 0.6 * ((number * 61) % 100) / 100.0);
    painter.drawRect(QRectF(figure - w * 0.04, horizon - h * 0.3, w * 0.08, h * 0.3));
    painter.drawEllipse(QPointF(figure, horizon - h * 0.36), h * 0.06, h * 0.06);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(qMax(8, int(h * 0.3)));
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(0x20, 0x20, 0x20));
    painter.drawText(QRectF(0, 0, w * 0.97, h * 0.97), Qt::AlignRight | Qt::AlignBottom, QString::number(number));
    return image;
}

QString SampleSketch::fileName(unsigned number)
{
    unsigned shot = 0;
    unsigned first = 1;
    while (first + panelsOfShot(shot) <= number)
        first += panelsOfShot(shot++);
    return QStringLiteral("SH%1_p%2.png").arg((shot + 1) * 10, 3, 10, QLatin1Char('0')).arg(number - first + 1);
}

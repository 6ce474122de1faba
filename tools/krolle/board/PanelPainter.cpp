#include "PanelPainter.h"

#include "DrawingKeys.h"
#include "PageLayout.h"
#include "PrintedPanel.h"

#include <QImageReader>
#include <QPainter>

namespace {

const double kMillimetresPerInch = 25.4;
const qreal kLabelPoints = 9.0;
const qreal kTextPoints = 7.5;
const QColor kFrame(0x40, 0x40, 0x40);
const QColor kPlaceholder(0xee, 0xee, 0xee);
const QColor kPlaceholderText(0x70, 0x70, 0x70);
const QString kFontFamily = QStringLiteral("DejaVu Sans");

QFont font(qreal points, bool bold)
{
    QFont result(kFontFamily);
    result.setPointSizeF(points);
    result.setBold(bold);
    return result;
}

} // namespace

struct PanelPainter::Private
{
    QPainter& painter;
    const PageLayout& layout;
    QStringList folders;

    // The picture of `key` fitted into `box` (device units), or a null image with `why` set.
    QImage picture(const QString& key, const QRectF& box, QString& why) const
    {
        const QString path = DrawingKeys::find(key, folders);
        if (path.isNull()) {
            why = QStringLiteral("missing: %1").arg(key);
            return QImage();
        }
        QImageReader reader(path);
        reader.setDecideFormatFromContent(true);
        const double pixelsPerUnit = kImageDpi / kMillimetresPerInch / layout.unit();
        const QSize wanted = (box.size() * pixelsPerUnit).toSize();
        QSize size = reader.size();
        if (size.isValid() && (size.width() > wanted.width() || size.height() > wanted.height()))
            reader.setScaledSize(size.scaled(wanted, Qt::KeepAspectRatio));
        const QImage image = reader.read();
        if (image.isNull())
            why = QStringLiteral("unreadable: %1").arg(key);
        return image;
    }

    void paintPicture(const QImage& image, const QRectF& box) const
    {
        QSizeF size = QSizeF(image.size()).scaled(box.size(), Qt::KeepAspectRatio);
        QRectF target(QPointF(), size);
        target.moveCenter(box.center());
        painter.drawImage(target, image);
    }

    void paintPlaceholder(const PrintedPanel& panel, const QRectF& box, const QString& why) const
    {
        painter.fillRect(box, kPlaceholder);
        QStringList lines { why.isNull() ? QStringLiteral("no picture") : why };
        lines << (panel.layers.isEmpty() ? QStringLiteral("no layers")
                                         : QStringLiteral("layers: %1").arg(panel.layers.join(QStringLiteral(", "))));
        painter.setPen(kPlaceholderText);
        painter.setFont(font(kTextPoints, false));
        const QRectF inner = box.adjusted(layout.unit() * 2, layout.unit() * 2, -layout.unit() * 2, -layout.unit() * 2);
        const int flags = Qt::AlignCenter | Qt::TextWordWrap;
        painter.drawText(inner, flags, fitted(painter, lines.join(QLatin1Char('\n')), inner, flags));
    }

    void paintCaption(const PrintedPanel& panel, const QRectF& box) const
    {
        painter.setPen(Qt::black);
        painter.setFont(font(kLabelPoints, true));
        const double line = painter.fontMetrics().height();
        const QRectF top(box.left(), box.top(), box.width(), line);
        const QString length = QStringLiteral("%1 fr  %2").arg(panel.length).arg(panel.duration);
        painter.drawText(top, Qt::AlignLeft | Qt::AlignVCenter,
            fitted(painter, QStringLiteral("%1 / %2").arg(panel.shot, panel.panel), top.adjusted(0, 0, -top.width() / 2, 0),
                Qt::AlignLeft));
        painter.setFont(font(kLabelPoints, false));
        painter.drawText(top, Qt::AlignRight | Qt::AlignVCenter, length);
        painter.setFont(font(kTextPoints, false));
        const QRectF rest = box.adjusted(0, line + layout.unit(), 0, 0);
        const int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
        painter.drawText(rest, flags, fitted(painter, panel.fields.join(QLatin1Char('\n')), rest, flags));
    }
};

PanelPainter::PanelPainter(QPainter& painter, const PageLayout& layout, const QStringList& folders)
    : d(new Private { painter, layout, folders })
{
}

PanelPainter::~PanelPainter() = default;

void PanelPainter::paint(const PrintedPanel& panel, const QRectF& cell) const
{
    const QRectF box = d->layout.picture(cell);
    QString why;
    const QImage image = panel.imageKey.isEmpty() ? QImage() : d->picture(panel.imageKey, box, why);
    if (image.isNull())
        d->paintPlaceholder(panel, box, why);
    else
        d->paintPicture(image, box);
    d->painter.setPen(QPen(kFrame, d->layout.unit() * 0.25));
    d->painter.setBrush(Qt::NoBrush);
    d->painter.drawRect(box);
    d->paintCaption(panel, d->layout.caption(cell));
}

QString PanelPainter::fitted(const QPainter& painter, const QString& text, const QRectF& box, int flags)
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    auto fits = [&](const QString& candidate) {
        const QRectF needed = metrics.boundingRect(QRectF(box.topLeft(), QSizeF(box.width(), 1e9)), flags, candidate);
        return needed.height() <= box.height() && needed.width() <= box.width() + 0.5;
    };
    if (text.isEmpty() || fits(text))
        return text;
    // The longest head of the text that fits with an ellipsis after it.
    const QChar ellipsis(0x2026);
    int low = 0;
    int high = text.size();
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (fits(text.left(middle).trimmed() + ellipsis))
            low = middle;
        else
            high = middle - 1;
    }
    return low == 0 ? QString() : text.left(low).trimmed() + ellipsis;
}

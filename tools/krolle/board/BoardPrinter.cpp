#include "BoardPrinter.h"

#include "InfoFieldText.h"
#include "NamedObjects.h"
#include "PageLayout.h"
#include "PanelPainter.h"
#include "PrintedPanel.h"
#include "ProgressBar.h"
#include "ToolError.h"

#include "metadata/KRC_PdfOptions.h"
#include "project/KRC_KrolleProject.h"

#include <QPainter>
#include <QPdfWriter>

#include <vector>

namespace {

const int kDpi = 300;
const double kMillimetresPerInch = 25.4;
const double kMarginMillimetres = 10.0;
const qreal kTitlePoints = 11.0;
const qreal kHeaderPoints = 9.0;

bool exported(const Krolle::Panel_t& panel)
{
    const KRC_PdfOptions* options = panel.pdfOptions();
    return !options || options->exportEnabled();
}

// The distinct non-empty names in order of first appearance, joined.
QString distinct(const QStringList& names)
{
    QStringList seen;
    for (const QString& name : names) {
        if (!name.isEmpty() && !seen.contains(name))
            seen << name;
    }
    return seen.join(QStringLiteral(", "));
}

} // namespace

struct BoardPrinter::Private
{
    const KRC_KrolleProject& view;
    PrintSettings settings;
    QVector<int> fieldIds;
    std::vector<Krolle::Panel_t> panels;
    unsigned leftOut = 0;

    Private(const KRC_KrolleProject& view, const PrintSettings& settings)
        : view(view)
        , settings(settings)
    {
        for (const QString& name : settings.fields)
            fieldIds << InfoFieldText::fieldId(view, true, name, settings.file);
        selectPanels();
    }

    Krolle::Shot_t shotNamed(const QString& name, bool last) const
    {
        if (name.isNull())
            return last ? view.last(Krolle::Shot_t::invalid) : view.first(Krolle::Shot_t::invalid);
        return NamedObjects::shot(view, name, QString());
    }

    void selectPanels()
    {
        const Krolle::Shot_t first = shotNamed(settings.fromShot, false);
        const Krolle::Shot_t last = shotNamed(settings.toShot, true);
        if (first.isInvalid())
            return;
        if (last.firstFrame() < first.firstFrame())
            throw ToolError::failure(QStringLiteral("%1: shot \"%2\" comes before shot \"%3\"")
                                         .arg(settings.file, settings.toShot, settings.fromShot));
        for (Krolle::Shot_t shot = first; shot.isValid(); shot = view.next(shot)) {
            for (auto panel = view.beginPanel(shot), end = view.endPanel(shot); panel != end; ++panel) {
                if (exported(*panel))
                    panels.push_back(*panel);
                else
                    ++leftOut;
            }
            if (shot == last)
                break;
        }
    }

    int perPage() const { return settings.columns * settings.rows; }

    unsigned pageCount() const { return unsigned((panels.size() + size_t(perPage()) - 1) / size_t(perPage())); }

    void paintHeader(QPainter& painter, const PageLayout& layout, const std::vector<PrintedPanel>& page,
        unsigned number) const
    {
        QStringList acts;
        QStringList sequences;
        for (const PrintedPanel& panel : page) {
            acts << panel.act;
            sequences << panel.sequence;
        }
        const QRectF header = layout.header().adjusted(0, 0, 0, -layout.unit() * 2);
        painter.setPen(Qt::black);
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPointSizeF(kTitlePoints);
        font.setBold(true);
        painter.setFont(font);
        const QRectF third(header.left(), header.top(), header.width() / 3, header.height());
        painter.drawText(third, Qt::AlignLeft | Qt::AlignBottom,
            PanelPainter::fitted(painter, settings.title, third, Qt::AlignLeft));
        font.setPointSizeF(kHeaderPoints);
        font.setBold(false);
        painter.setFont(font);
        QStringList groups { distinct(acts), distinct(sequences) };
        groups.removeAll(QString());
        painter.drawText(third.translated(third.width(), 0), Qt::AlignHCenter | Qt::AlignBottom,
            PanelPainter::fitted(painter, groups.join(QStringLiteral("  \u2014  ")), third, Qt::AlignHCenter));
        painter.drawText(third.translated(third.width() * 2, 0), Qt::AlignRight | Qt::AlignBottom,
            QStringLiteral("page %1 of %2").arg(number).arg(pageCount()));
        painter.setPen(QPen(Qt::black, layout.unit() * 0.3));
        painter.drawLine(header.bottomLeft() + QPointF(0, layout.unit()), header.bottomRight() + QPointF(0, layout.unit()));
    }
};

BoardPrinter::BoardPrinter(const KRC_KrolleProject& view, const PrintSettings& settings)
    : d(new Private(view, settings))
{
}

BoardPrinter::~BoardPrinter() = default;

unsigned BoardPrinter::panelCount() const
{
    return unsigned(d->panels.size());
}

unsigned BoardPrinter::leftOut() const
{
    return d->leftOut;
}

unsigned BoardPrinter::pageCount() const
{
    return d->pageCount();
}

bool BoardPrinter::print(QIODevice& out) const
{
    QPdfWriter writer(&out);
    writer.setTitle(d->settings.title);
    writer.setCreator(QStringLiteral("krolle"));
    writer.setResolution(kDpi);
    const QMarginsF margins(kMarginMillimetres, kMarginMillimetres, kMarginMillimetres, kMarginMillimetres);
    writer.setPageLayout(QPageLayout(QPageSize(d->settings.page),
        d->settings.landscape ? QPageLayout::Landscape : QPageLayout::Portrait, margins, QPageLayout::Millimeter));
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const PageLayout layout(writer.width(), writer.height(), kDpi / kMillimetresPerInch, d->settings.columns, d->settings.rows);
    const PanelPainter panelPainter(painter, layout, d->settings.imageFolders);
    ProgressBar progress(QStringLiteral("printing"), d->panels.size());
    const unsigned pages = d->pageCount();
    size_t next = 0;
    for (unsigned page = 0; page < pages; ++page) {
        if (page > 0 && !writer.newPage())
            return false;
        // The page's panels first: the header names their acts and sequences, and reads before them.
        std::vector<PrintedPanel> printed;
        for (int cell = 0; cell < layout.cellsPerPage() && next < d->panels.size(); ++cell, ++next)
            printed.push_back(PrintedPanel::read(d->view, d->panels[next], d->fieldIds, d->settings.fields, d->settings.clock));
        d->paintHeader(painter, layout, printed, page + 1);
        for (size_t cell = 0; cell < printed.size(); ++cell) {
            panelPainter.paint(printed[cell], layout.cell(int(cell)));
            progress.advance();
        }
    }
    return painter.end();
}

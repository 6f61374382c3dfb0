#include "views/graph_print.h"

#include <QActionGroup>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <cmath>

#include "canvas/graph_canvas.h"
#include "widgets/qt_text.h"

namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kOverlap = 40;    // pixels, about a centimetre
constexpr double kLabel = 16;      // height of the line below a page
constexpr std::size_t kMany = 30;  // pages; the preview of more begins with one

int CountOf(double length, double page) {
    return length <= page ? 1 : static_cast<int>(std::ceil((length - kOverlap) / (page - kOverlap)));
}

// What fits onto a page, in pixels of the picture.
QSizeF PaperOf(const QPrinter& printer) {
    return printer.pageLayout().paintRect(QPageLayout::Inch).size() * kPixelsPerInch;
}

// Where the neighbours begin.
void PaintMarks(QPainter& painter, const PrintPage& page, const std::vector<PrintPage>& pages) {
    const auto has = [&](int row, int column) {
        return std::ranges::any_of(pages, [&](const PrintPage& one) { return one.row == row && one.column == column; });
    };
    const QRectF& part = page.part;
    painter.setPen(QPen(QColor(120, 120, 120), 0.75, Qt::DashLine));
    const auto vertical = [&](double x) { painter.drawLine(QPointF(x, part.top()), QPointF(x, part.bottom())); };
    const auto horizontal = [&](double y) { painter.drawLine(QPointF(part.left(), y), QPointF(part.right(), y)); };
    if (has(page.row, page.column - 1))
        vertical(part.left() + kOverlap);
    if (has(page.row, page.column + 1))
        vertical(part.right() - kOverlap);
    if (has(page.row - 1, page.column))
        horizontal(part.top() + kOverlap);
    if (has(page.row + 1, page.column))
        horizontal(part.bottom() - kOverlap);
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(10);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(part.left(), part.bottom(), part.width(), kLabel), Qt::AlignCenter,
                     TextNr(Text::PrintPlace, NumberText(page.row), NumberText(page.column)));
}

void PrintPages(QPrinter& printer, QPainter& painter, const GraphPicture& picture) {
    const double scale = printer.logicalDpiX() / kPixelsPerInch;
    const std::vector<PrintPage> pages = PagesOf(picture, PaperOf(printer));
    for (const PrintPage& page : pages) {
        if (&page != pages.data())
            printer.newPage();
        painter.save();
        painter.scale(scale, scale);
        painter.translate(-page.part.topLeft());
        painter.save();
        painter.setClipRect(page.part);
        picture.Paint(painter, page.part);
        painter.restore();
        if (pages.size() > 1)
            PaintMarks(painter, page, pages);
        painter.restore();
    }
}

// In the middle of the page, and no larger than it is.
void PrintFitted(const QPrinter& printer, QPainter& painter, const GraphPicture& picture) {
    const QSizeF paper = PaperOf(printer);
    const QSizeF size = picture.Size();
    const double fit = std::min({1.0, paper.width() / size.width(), paper.height() / size.height()});
    const double scale = printer.logicalDpiX() / kPixelsPerInch;
    painter.scale(scale, scale);
    painter.translate((paper.width() - size.width() * fit) / 2, (paper.height() - size.height() * fit) / 2);
    painter.scale(fit, fit);
    picture.Paint(painter, QRectF(QPointF(), size));
}

class Preview final : public QPrintPreviewDialog {
public:
    Preview(QPrinter& printer, const GraphPicture& picture, QWidget* parent)
        : QPrintPreviewDialog(&printer, parent), picture_(picture) {
        setWindowTitle(TextNr(Text::PrintGraph));
        if (PagesOf(picture, PaperOf(printer)).size() > kMany)
            mode_ = PrintMode::OnePage;
        AddModes();
        connect(this, &QPrintPreviewDialog::paintRequested, this,
                [this](QPrinter* to) { isPrinted_ = PrintPicture(*to, picture_, mode_); });
    }
    [[nodiscard]] bool IsPrinted() const { return isPrinted_; }

private:
    void AddModes() {
        auto* const bar = findChild<QToolBar*>();
        if (!bar)
            return;
        auto* const group = new QActionGroup(this);
        bar->addSeparator();
        for (const auto& [mode, text] :
             {std::pair{PrintMode::FullSize, Text::PrintFullSize}, {PrintMode::OnePage, Text::PrintOnePage}}) {
            QAction* const action = group->addAction(TextNr(text));
            action->setCheckable(true);
            action->setChecked(mode == mode_);
            action->setObjectName(mode == PrintMode::FullSize ? QStringLiteral("fullSize") : QStringLiteral("onePage"));
            connect(action, &QAction::triggered, this, [this, chosen = mode] {
                mode_ = chosen;
                if (auto* const pages = findChild<QPrintPreviewWidget*>())
                    pages->updatePreview();
            });
            bar->addAction(action);
        }
    }

    const GraphPicture& picture_;
    PrintMode mode_ = PrintMode::FullSize;
    bool isPrinted_ = true;
};

}  // namespace

std::vector<PrintPage> PagesOf(const GraphPicture& picture, QSizeF paper) {
    const QSizeF size = picture.Size();
    QSizeF page = paper;
    if (CountOf(size.width(), page.width()) * CountOf(size.height(), page.height()) > 1)
        page.rheight() -= kLabel;
    const int columns = CountOf(size.width(), page.width());
    const int rows = CountOf(size.height(), page.height());
    const double step = page.width() - kOverlap;
    const double stepDown = page.height() - kOverlap;
    const QPointF first((size.width() - (columns - 1) * step - page.width()) / 2,
                        (size.height() - (rows - 1) * stepDown - page.height()) / 2);
    std::vector<PrintPage> pages;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const PrintPage one{QRectF(first + QPointF(column * step, row * stepDown), page), row + 1, column + 1};
            if (rows * columns == 1 || picture.HasAnyAt(one.part))
                pages.push_back(one);
        }
    return pages;
}

bool PrintPicture(QPrinter& printer, const GraphPicture& picture, PrintMode mode) {
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    if (mode == PrintMode::FullSize)
        PrintPages(printer, painter, picture);
    else
        PrintFitted(printer, painter, picture);
    return painter.end();
}

bool PreviewPicture(const GraphPicture& picture, QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    const bool isWide = picture.Size().width() > picture.Size().height();
    printer.setPageOrientation(isWide ? QPageLayout::Landscape : QPageLayout::Portrait);
    Preview preview(printer, picture, parent);
    preview.resize(parent->size().boundedTo(QSize(1000, 800)));
    preview.exec();
    return preview.IsPrinted();
}

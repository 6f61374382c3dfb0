#include "charts/chart_board.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollBar>
#include <QStackedLayout>
#include <QToolButton>
#include <QVBoxLayout>

#include "charts/chart_export.h"
#include "charts/chart_view.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

ChartBoard::ChartBoard(QWidget* parent)
    : QWidget(parent),
      comboChart_(new QComboBox(this)),
      zoomMinus_(new QToolButton(this)),
      zoomNo_(new QToolButton(this)),
      zoomPlus_(new QToolButton(this)),
      view_(new ChartView),
      hScroll1_(new QScrollBar(Qt::Horizontal)),
      pages_(new QStackedLayout),
      bars_(new QWidget(this)),
      hintPage_(new QWidget(this)),
      hint_(new QLabel(hintPage_)),
      hintButton_(new QPushButton(hintPage_)) {
    comboChart_->setObjectName(QStringLiteral("comboChart"));
    for (const ChartType type : kChartTypes)
        comboChart_->addItem(QString(), static_cast<int>(type));
    connect(comboChart_, &QComboBox::activated, this, &ChartBoard::TypeChosen);

    auto* bars = new QVBoxLayout(bars_);
    bars->setContentsMargins(0, 0, 0, 0);
    bars->setSpacing(0);
    bars->addWidget(view_);
    bars->addWidget(hScroll1_);
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setWordWrap(true);
    hintButton_->setObjectName(QStringLiteral("chartHintButton"));
    auto* hint = new QVBoxLayout(hintPage_);
    hint->addStretch();
    hint->addWidget(hint_);
    hint->addWidget(hintButton_, 0, Qt::AlignHCenter);
    hint->addStretch();
    pages_->addWidget(bars_);
    pages_->addWidget(hintPage_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(2);
    all->addLayout(BuildHead());
    all->addLayout(pages_);

    connect(hintButton_, &QPushButton::clicked, this, &ChartBoard::HintClicked);
    connect(view_, &ChartView::Picked, this,
            [this](int row) { Q_EMIT ModulePicked(view_->Table().rows[static_cast<std::size_t>(row)].key); });
    connect(view_, &ChartView::ScrollChanged, this, &ChartBoard::FitScroll);
    connect(view_, &ChartView::MenuAsked, this, &ChartBoard::ShowMenu);
    connect(hScroll1_, &QScrollBar::valueChanged, view_, &ChartView::ScrollTo);
    auto* copy = new QAction(view_);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &ChartBoard::CopyPicture);
    view_->addAction(copy);
}

QLayout* ChartBoard::BuildHead() {
    auto* head = new QHBoxLayout;
    head->addWidget(comboChart_);
    head->addStretch();
    const auto button = [this, head](QToolButton* zoom, const char* image, int step) {
        zoom->setIcon(IconFor(image));
        zoom->setObjectName(QLatin1String(image));
        zoom->setAutoRaise(true);
        connect(zoom, &QToolButton::clicked, this, [this, step] { Zoom(step); });
        head->addWidget(zoom);
    };
    button(zoomMinus_, "ZoomMinus", -1);
    button(zoomNo_, "ZoomNo", 0);
    button(zoomPlus_, "ZoomPlus", 1);
    return head;
}

ChartType ChartBoard::Type() const {
    return static_cast<ChartType>(comboChart_->currentData().toInt());
}

void ChartBoard::Show(const ChartTable& table) {
    view_->Show(table);
    pages_->setCurrentWidget(bars_);
}

void ChartBoard::ShowHint(Text hint, Text button) {
    hintText_ = hint;
    hintButtonText_ = button;
    view_->Show({});
    Texte();
    pages_->setCurrentWidget(hintPage_);
}

void ChartBoard::Mark(const std::string& key) {
    if (const int row = view_->Table().RowOf(key); row >= 0)
        view_->Mark(row);
}

void ChartBoard::Zoom(int step) {
    view_->Zoom(step);
}

int ChartBoard::ScrolledBy() const {
    return view_->ScrolledBy();
}

void ChartBoard::ScrollTo(int pixels) {
    view_->ScrollTo(pixels);
}

void ChartBoard::FitScroll() {
    const QSignalBlocker blocker(hScroll1_);
    hScroll1_->setRange(0, view_->ScrollRange());
    hScroll1_->setPageStep(view_->width());
    hScroll1_->setSingleStep(view_->width() / 20);
    hScroll1_->setValue(view_->ScrolledBy());
    hScroll1_->setVisible(view_->ScrollRange() > 0);
}

void ChartBoard::Texte() {
    for (int i = 0; i < comboChart_->count(); ++i)
        comboChart_->setItemText(i, TextNr(NameOf(static_cast<ChartType>(comboChart_->itemData(i).toInt()))));
    comboChart_->setAccessibleName(TextNr(Text::Chart));
    const auto name = [](QToolButton* button, Text text) {
        button->setToolTip(TextNr(text));
        button->setAccessibleName(TextNr(text));
    };
    name(zoomMinus_, Text::ZoomOut);
    name(zoomNo_, Text::NormalSize);
    name(zoomPlus_, Text::ZoomIn);
    hint_->setText(TextNr(hintText_));
    hintButton_->setText(TextNr(hintButtonText_));
}

void ChartBoard::Clear() {
    view_->Show({});
}

void ChartBoard::ShowMenu(const QPoint& place) {
    if (view_->Table().rows.empty())
        return;
    QMenu menu(this);
    menu.addAction(TextNr(Text::SavePicture), this, &ChartBoard::SavePicture);
    menu.addAction(TextNr(Text::CopyPicture), QKeySequence::Copy, this, &ChartBoard::CopyPicture);
    menu.addSeparator();
    menu.addAction(TextNr(Text::SaveTable), this, &ChartBoard::SaveTable);
    menu.addAction(TextNr(Text::CopyTable), this, &ChartBoard::CopyTable);
    Q_EMIT MenuFilled(menu);
    menu.exec(place);
}

QString ChartBoard::AskFile(const QStringList& filters, const QString& suffix) {
    QFileDialog dialog(this, TextNr(NameOf(Type())), saveDirectory_.isEmpty() ? startDirectory_ : saveDirectory_);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(suffix);
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        const qsizetype dot = filter.lastIndexOf(QLatin1Char('.'));
        dialog.setDefaultSuffix(filter.mid(dot + 1).chopped(1));
    });
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    saveDirectory_ = dialog.directory().path();
    return dialog.selectedFiles().front();
}

void ChartBoard::SavePicture() {
    const QString path = AskFile({QStringLiteral("PNG (*.png)"), QStringLiteral("SVG (*.svg)")}, QStringLiteral("png"));
    const QSize size(view_->WholeWidth(), view_->height());
    if (!path.isEmpty() && !SaveChartPicture(view_->Table(), view_->Marked(), size, view_->font(), path))
        Q_EMIT NotWritten(path);
}

void ChartBoard::SaveTable() {
    const QString path = AskFile({QStringLiteral("CSV (*.csv)")}, QStringLiteral("csv"));
    if (path.isEmpty())
        return;
    QSaveFile file(path);
    const std::string table = ChartAsCsv(view_->Table());
    if (!file.open(QIODevice::WriteOnly) || file.write(table.data(), static_cast<qint64>(table.size())) < 0 ||
        !file.commit())
        Q_EMIT NotWritten(path);
}

void ChartBoard::CopyPicture() const {
    if (!view_->Table().rows.empty())
        QGuiApplication::clipboard()->setImage(
            ChartPicture(view_->Table(), view_->Marked(), view_->size(), view_->font(), view_->devicePixelRatioF()));
}

void ChartBoard::CopyTable() const {
    QGuiApplication::clipboard()->setText(QString::fromStdString(ChartAsCsv(view_->Table())));
}

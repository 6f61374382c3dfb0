#include "views/properties_grid.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

#include "widgets/code_style.h"
#include "widgets/qt_text.h"

namespace {

enum Column { ColumnLabel, ColumnValue, ColumnCount };

QString CellText(const PropertyCell& cell) {
    const QString text = TextNr(cell.text);
    return text.isEmpty() ? ToQString(cell.bytes) : text;
}

}  // namespace

PropertiesGrid::PropertiesGrid(QWidget* parent)
    : QWidget(parent),
      labEigenschaften_(new QLabel(this)),
      grid_(new QTableWidget(0, ColumnCount, this)),
      empty_(new QLabel(grid_)),
      copy_(new QAction(this)) {
    labEigenschaften_->setObjectName(QStringLiteral("labEigenschaften"));
    labEigenschaften_->setBuddy(grid_);
    grid_->setObjectName(QStringLiteral("MSFlexGrid1"));
    grid_->setShowGrid(false);
    grid_->setFrameShape(QFrame::NoFrame);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid_->setTabKeyNavigation(false);
    grid_->setTextElideMode(Qt::ElideRight);
    grid_->setWordWrap(false);
    grid_->horizontalHeader()->hide();
    grid_->verticalHeader()->hide();
    grid_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    grid_->horizontalHeader()->setSectionResizeMode(ColumnLabel, QHeaderView::ResizeToContents);
    grid_->horizontalHeader()->setStretchLastSection(true);
    grid_->installEventFilter(this);

    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    empty_->setMargin(12);
    empty_->setForegroundRole(QPalette::PlaceholderText);
    empty_->setAttribute(Qt::WA_TransparentForMouseEvents);

    copy_->setShortcut(QKeySequence::Copy);
    copy_->setShortcutContext(Qt::WidgetShortcut);
    connect(copy_, &QAction::triggered, this, &PropertiesGrid::Copy);
    grid_->addAction(copy_);
    grid_->setContextMenuPolicy(Qt::ActionsContextMenu);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(labEigenschaften_);
    layout->addWidget(grid_, 1);
    Texte();
}

void PropertiesGrid::Texte() {
    labEigenschaften_->setText(TextNr(Text::Properties));
    setAccessibleName(TextNr(Text::Properties));
    grid_->setAccessibleName(TextNr(Text::Properties));
    empty_->setText(TextNr(Text::EmptyProperties));
    copy_->setText(TextNr(Text::CopyRows));
    Fill();
}

void PropertiesGrid::Show(PropertyRows rows) {
    rows_ = std::move(rows);
    Fill();
}

void PropertiesGrid::Fill() {
    const QColor base = grid_->palette().color(QPalette::Base);
    const QColor dimmed = Dimmed(grid_->palette(), base);
    grid_->setRowCount(static_cast<int>(rows_.size()));
    for (int row = 0; row < grid_->rowCount(); ++row) {
        const PropertyRow& from = rows_[static_cast<std::size_t>(row)];
        auto* label = new QTableWidgetItem(CellText(from.label));
        label->setForeground(dimmed);
        auto* value = new QTableWidgetItem(CellText(from.value));
        value->setToolTip(value->text());
        if (from.value.isNumber)
            value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid_->setItem(row, ColumnLabel, label);
        grid_->setItem(row, ColumnValue, value);
    }
    empty_->setVisible(rows_.empty());
}

QString PropertiesGrid::AsText() const {
    QString text;
    const bool all = grid_->selectedItems().isEmpty();
    for (int row = 0; row < grid_->rowCount(); ++row)
        if (all || grid_->item(row, ColumnLabel)->isSelected())
            text += grid_->item(row, ColumnLabel)->text() + QLatin1Char('\t') + grid_->item(row, ColumnValue)->text() +
                    QLatin1Char('\n');
    return text;
}

void PropertiesGrid::Copy() const {
    QApplication::clipboard()->setText(AsText());
}

void PropertiesGrid::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        Fill();
}

bool PropertiesGrid::eventFilter(QObject* watched, QEvent* event) {
    if (watched == grid_ && event->type() == QEvent::Resize)
        empty_->setGeometry(grid_->rect());
    return QWidget::eventFilter(watched, event);
}

void PropertiesGrid::HideHeading() {
    labEigenschaften_->hide();
}

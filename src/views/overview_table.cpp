#include "views/overview_table.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSortFilterProxyModel>
#include <algorithm>

#include "views/copy_table.h"
#include "views/read_only_table.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kSortRole = Qt::UserRole;

}  // namespace

int OverviewModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Columns;
}

QVariant OverviewModel::data(const QModelIndex& index, int role) const {
    const ListedObject* row = RowAt(index);
    if (!row)
        return {};
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((index.column() == Lines ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role == kSortRole && index.column() == Lines)
        return row->lines;
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != kSortRole)
        return {};
    switch (index.column()) {
        case Change:
            return QString::fromStdString(row->change);
        case Name:
            return QString::fromStdString(row->name);
        case Kind:
            return QString::fromStdString(row->kind);
        case Where:
            return QString::fromStdString(row->place);
        case Lines:
            return row->lines > 0 ? NumberText(row->lines) : QString();
        default:
            return {};
    }
}

QVariant OverviewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= Columns)
        return {};
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((section == Lines ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    constexpr Text titles[] = {Text::ChangeColumn, Text::NameColumn, Text::Kind, Text::Where, Text::Lines};
    return role == Qt::DisplayRole ? QVariant(TextNr(titles[section])) : QVariant();
}

OverviewTable::OverviewTable(QWidget* parent)
    : QTableView(parent), model_(new OverviewModel(this)), sorted_(new QSortFilterProxyModel(this)) {
    setObjectName(QStringLiteral("overviewTable"));
    sorted_->setSourceModel(model_);
    sorted_->setSortCaseSensitivity(Qt::CaseInsensitive);
    sorted_->setSortRole(kSortRole);
    setModel(sorted_);
    setSortingEnabled(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setTextElideMode(Qt::ElideMiddle);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setAlternatingRowColors(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(false);
    CopyTableOnCtrlC(*this);
    HomeAndEndGoToRows(*this);
    FitRows();
    connect(this, &QTableView::doubleClicked, this, &OverviewTable::Choose);
}

void OverviewTable::FitColumns(bool hasChanges) {
    setColumnHidden(OverviewModel::Change, !hasChanges);
    for (const int column : {OverviewModel::Change, OverviewModel::Kind, OverviewModel::Lines})
        resizeColumnToContents(column);
    nameWidth_ = WidestText(OverviewModel::Name);
    placeWidth_ = WidestText(OverviewModel::Where);
    ShareWidth();
}

int OverviewTable::WidestText(int column) const {
    int widest = horizontalHeader()->sectionSizeHint(column);
    const int margins = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1);
    for (int row = 0; row < model_->rowCount(); ++row) {
        const QString text = model_->index(row, column).data().toString();
        widest = std::max(widest, fontMetrics().horizontalAdvance(text) + margins);
    }
    return widest;
}

void OverviewTable::ShareWidth() {
    if (viewport()->width() <= 0)
        return;
    int free = viewport()->width();
    for (const int column : {OverviewModel::Change, OverviewModel::Kind, OverviewModel::Lines})
        free -= isColumnHidden(column) ? 0 : columnWidth(column);
    const int name = std::min(nameWidth_, std::max(free * 2 / 3, free - placeWidth_));
    setColumnWidth(OverviewModel::Name, std::max(name, 1));
    setColumnWidth(OverviewModel::Where, std::max(free - name, 1));
}

std::string OverviewTable::CurrentKey() const {
    const ListedObject* row = model_->RowAt(sorted_->mapToSource(currentIndex()));
    return row ? row->key : std::string();
}

void OverviewTable::ShowAgain(std::vector<ListedObject> rows, const std::string& currentKey) {
    const bool hasChanges = std::ranges::any_of(rows, [](const ListedObject& row) { return !row.change.empty(); });
    model_->Show(std::move(rows));
    FitColumns(hasChanges);
    for (int row = 0; row < sorted_->rowCount(); ++row) {
        const QModelIndex index = sorted_->index(row, OverviewModel::Name);
        if (const ListedObject* listed = model_->RowAt(sorted_->mapToSource(index)); listed->key == currentKey)
            return setCurrentIndex(index);
    }
}

void OverviewTable::Show(std::vector<ListedObject> rows) {
    const bool hasChanges = std::ranges::any_of(rows, [](const ListedObject& row) { return !row.change.empty(); });
    model_->Show(std::move(rows));
    // In the order of the list until the user clicks a heading.
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    sorted_->sort(-1);
    FitColumns(hasChanges);
    scrollToTop();
    if (sorted_->rowCount() > 0)
        setCurrentIndex(sorted_->index(0, OverviewModel::Name));
}

void OverviewTable::Texte() {
    Q_EMIT model_->headerDataChanged(Qt::Horizontal, 0, OverviewModel::Columns - 1);
}

void OverviewTable::Choose(const QModelIndex& index) {
    const ListedObject* row = model_->RowAt(sorted_->mapToSource(index));
    if (row && !row->key.empty())
        Q_EMIT ObjectChosen(std::string(row->key));  // a copy: the answer may show another list
}

void OverviewTable::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Choose(currentIndex());
    else if (event->key() == Qt::Key_Escape)
        Q_EMIT Left();
    else
        QTableView::keyPressEvent(event);
}

void OverviewTable::FitRows() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
}

void OverviewTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    FitRows();
    FitColumns(!isColumnHidden(OverviewModel::Change));
}

void OverviewTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    ShareWidth();
}

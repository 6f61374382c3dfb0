#include "views/problems_list.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSortFilterProxyModel>
#include <QStackedWidget>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "display/library_problem.h"
#include "display/shown_text.h"
#include "model/clsProjekt.h"
#include "project/start.h"
#include "shell/words.h"
#include "views/copy_table.h"
#include "views/dialogs.h"
#include "widgets/qt_text.h"

namespace {

// Sentences are shortened at their end; names and paths, in the other columns, in the middle.
class SentenceDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->textElideMode = Qt::ElideRight;
    }
};

QString PlaceCount(const ProblemEntry& entry) {
    const std::size_t count = entry.places.size();
    return count < 2 ? QString()
                     : QStringLiteral(" (%1)").arg(TextNr(Text::PlaceCount, NumberText(static_cast<qlonglong>(count))));
}

// The module, or the name of the file of another problem.
QString WhereOf(const ProblemEntry& entry) {
    const ProblemPlace& first = entry.places.front();
    const QString where = ToQString(first.module.empty() ? modMain::DirOrFileName(first.path, 0) : first.module);
    const bool isMore = std::any_of(entry.places.begin(), entry.places.end(),
                                    [&first](const ProblemPlace& place) { return place.path != first.path; });
    return isMore ? where + QStringLiteral(", \u2026") : where;
}

// The text in the user's language, if it has one.
QString TextOf(const ProblemEntry& entry) {
    return entry.file == FileError::None ? QString::fromStdString(ShownProblem(gProjekt.get(), entry))
                                         : TextNr(CauseAndRemedy(entry.file));
}

// The text, its meaning, and each place with the tag of its report.
QString WholeText(const ProblemEntry& entry) {
    constexpr std::size_t kMostPlaces = 200;
    QString whole = TextOf(entry) + QLatin1Char('\n') + TextNr(entry.meaning);
    for (std::size_t nr = 0; nr < std::min(entry.places.size(), kMostPlaces); ++nr) {
        const ProblemPlace& place = entry.places[nr];
        whole += QStringLiteral("\n%1: %2").arg(TextNr(Text::Where), ToQString(ShownPath(place.path)));
        if (place.line > 0)
            whole += QStringLiteral(", %1 %2").arg(TextNr(Text::Line)).arg(place.line);
        whole += QStringLiteral("\n->> ") + ToQString(place.tag);
    }
    return entry.places.size() > kMostPlaces ? whole + QStringLiteral("\n\u2026") : whole;
}

}  // namespace

int ProblemsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Columns;
}

QVariant ProblemsModel::data(const QModelIndex& index, int role) const {
    const ProblemEntry* entry = RowAt(index);
    if (!entry || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    switch (index.column()) {
        case What:
            return TextOf(*entry) + PlaceCount(*entry);
        case Where:
            return role == Qt::ToolTipRole ? ToQString(ShownPath(entry->places.front().path)) : WhereOf(*entry);
        case Line:
            return entry->places.front().line > 0 ? QVariant(entry->places.front().line) : QVariant();
        case Meaning:
            return TextNr(entry->meaning);
        default:
            return {};
    }
}

QVariant ProblemsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= Columns)
        return {};
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    constexpr Text titles[] = {Text::WhatHappened, Text::OneModule, Text::Line, Text::WhatItMeans};
    return role == Qt::DisplayRole ? QVariant(TextNr(titles[section])) : QVariant();
}

ProblemsList::ProblemsList(QWidget* parent)
    : QDialog(parent),
      model_(new ProblemsModel(this)),
      sorted_(new QSortFilterProxyModel(this)),
      table_(new QTableView),
      empty_(new QLabel),
      pages_(new QStackedWidget),
      whole_(new QPlainTextEdit),
      keys_(new QLabel),
      cmdGoTo_(new QPushButton),
      cmdCopy_(new QPushButton),
      cmdClose_(new QPushButton) {
    setObjectName(QStringLiteral("problemsList"));
    setAttribute(Qt::WA_QuitOnClose, false);
    sorted_->setSourceModel(model_);
    sorted_->setSortCaseSensitivity(Qt::CaseInsensitive);
    table_->setObjectName(QStringLiteral("table"));
    table_->setModel(sorted_);
    table_->setSortingEnabled(true);
    // In the order of their reports until the user clicks a heading.
    table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    sorted_->sort(-1);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setTextElideMode(Qt::ElideMiddle);
    for (const int column : {ProblemsModel::What, ProblemsModel::Meaning})
        table_->setItemDelegateForColumn(column, new SentenceDelegate(table_));
    table_->setWordWrap(false);
    table_->setTabKeyNavigation(false);
    table_->setShowGrid(false);
    table_->setAlternatingRowColors(true);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->horizontalHeader()->setHighlightSections(false);
    CopyTableOnCtrlC(*table_);
    empty_->setObjectName(QStringLiteral("empty"));
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    empty_->setForegroundRole(QPalette::PlaceholderText);
    pages_->addWidget(table_);
    pages_->addWidget(empty_);
    whole_->setReadOnly(true);
    whole_->setTabChangesFocus(true);
    whole_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    whole_->setFixedHeight(6 * fontMetrics().lineSpacing());
    cmdCopy_->setObjectName(QStringLiteral("cmdCopy"));
    cmdClose_->setObjectName(QStringLiteral("cmdClose"));
    cmdGoTo_->setObjectName(QStringLiteral("cmdGoTo"));
    keys_->setForegroundRole(QPalette::PlaceholderText);
    keys_->setWordWrap(true);
    // Enter goes to the place of the row, so no button may take it.
    for (QPushButton* button : {cmdGoTo_, cmdCopy_, cmdClose_})
        button->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdGoTo_);
    buttons->addWidget(cmdCopy_);
    buttons->addStretch();
    buttons->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pages_, 1);
    layout->addWidget(whole_);
    layout->addWidget(keys_);
    layout->addLayout(buttons);
    const int character = fontMetrics().averageCharWidth();
    resize(QSize(130 * character, 28 * fontMetrics().lineSpacing()).boundedTo(screen()->availableSize() * 0.9));
    table_->setColumnWidth(ProblemsModel::What, width() * 50 / 130);
    table_->setColumnWidth(ProblemsModel::Where, width() * 22 / 130);
    table_->setColumnWidth(ProblemsModel::Line, width() * 8 / 130);
    auto* enter = new QAction(table_);
    enter->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    enter->setShortcutContext(Qt::WidgetShortcut);
    table_->addAction(enter);

    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::close);
    connect(enter, &QAction::triggered, this, &ProblemsList::GoToPlace);
    connect(table_, &QTableView::doubleClicked, this, &ProblemsList::GoToPlace);
    connect(cmdGoTo_, &QPushButton::clicked, this, &ProblemsList::GoToPlace);
    connect(cmdCopy_, &QPushButton::clicked, this, [this] { CopyTable(*table_); });
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &ProblemsList::ShowSelected);
    connect(sorted_, &QAbstractItemModel::modelReset, this, &ProblemsList::ShowSelected);
    Texte();
    Refresh();
}

void ProblemsList::Texte() {
    setWindowTitle(TextNr(Text::Problems));
    table_->setAccessibleName(TextNr(Text::Problems));
    empty_->setText(TextNr(Text::NoProblems));
    whole_->setAccessibleName(TextNr(Text::TechnicalDetails));
    keys_->setText(TextNr(Text::ProblemKeys));
    cmdGoTo_->setText(TextNr(Text::ProblemGoTo));
    cmdCopy_->setText(TextNr(Text::Copy));
    cmdClose_->setText(TextNr(Text::Close));
    AssignMnemonics(*this);
    Q_EMIT model_->headerDataChanged(Qt::Horizontal, 0, ProblemsModel::Columns - 1);
    ShowSelected();
}

void ProblemsList::Refresh() {
    walk_.Restart();
    model_->Show(gProjekt ? ProblemEntries(*gProjekt) : std::vector<ProblemEntry>());
    const bool isEmpty = model_->rowCount() == 0;
    pages_->setCurrentWidget(isEmpty ? static_cast<QWidget*>(empty_) : table_);
    whole_->setVisible(!isEmpty);
    keys_->setVisible(!isEmpty);
    cmdCopy_->setEnabled(!isEmpty);
    if (!isEmpty)
        table_->setCurrentIndex(sorted_->index(0, 0));
}

const ProblemEntry* ProblemsList::Selected() const {
    return model_->RowAt(sorted_->mapToSource(table_->currentIndex()));
}

void ProblemsList::ShowSelected() {
    const ProblemEntry* entry = Selected();
    whole_->setPlainText(entry ? WholeText(*entry) : QString());
    cmdGoTo_->setEnabled(entry && std::any_of(entry->places.begin(), entry->places.end(),
                                              [](const ProblemPlace& place) { return !place.node.empty(); }));
}

void ProblemsList::GoToPlace() {
    const ProblemEntry* entry = Selected();
    const ProblemPlace* place = entry ? walk_.Next(*entry) : nullptr;
    if (place)
        Q_EMIT PlaceChosen(place->node, place->line);
}

void ProblemsList::Present() {
    // At the lower right of the main window, where it leaves the tree and the first lines of the code free.
    if (const QWidget* main = parentWidget(); main && !isVisible()) {
        const int gap = fontMetrics().height();
        move(main->geometry().bottomRight() - QPoint(width() + gap, height() + 4 * gap));
    }
    show();
    raise();
    activateWindow();
}

void ProblemsList::showEvent(QShowEvent* event) {
    Refresh();
    QDialog::showEvent(event);
    table_->setFocus();
}

#include "views/problems_list.h"

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

#include "display/fixed_texts.h"
#include "display/problem_meaning.h"
#include "model/clsProjekt.h"
#include "project/start.h"
#include "views/copy_table.h"
#include "views/dialogs.h"
#include "views/qt_text.h"

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

}  // namespace

void ProblemsModel::Refresh() {
    beginResetModel();
    problems_ = gProjekt ? gProjekt->problems.All() : std::vector<Problem>();
    endResetModel();
}

const Problem* ProblemsModel::ProblemAt(const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    return index.isValid() && row < problems_.size() ? &problems_[row] : nullptr;
}

int ProblemsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(problems_.size());
}

int ProblemsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Columns;
}

QVariant ProblemsModel::data(const QModelIndex& index, int role) const {
    const Problem* problem = ProblemAt(index);
    if (!problem || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    switch (index.column()) {
        case What:
            return QString::fromStdString(ShownText(problem->text));
        case Where:
            return ToQString(problem->subject);
        case Meaning:
            return TextNr(ProblemMeaning(problem->tag));
        default:
            return {};
    }
}

QVariant ProblemsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= Columns)
        return {};
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    constexpr Text titles[] = {Text::WhatHappened, Text::Where, Text::WhatItMeans};
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
    table_->setItemDelegateForColumn(ProblemsModel::Meaning, new SentenceDelegate(table_));
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
    cmdCopy_->setAutoDefault(false);
    cmdClose_->setObjectName(QStringLiteral("cmdClose"));
    cmdClose_->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdCopy_);
    buttons->addStretch();
    buttons->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pages_, 1);
    layout->addWidget(whole_);
    layout->addLayout(buttons);
    const int character = fontMetrics().averageCharWidth();
    resize(QSize(130 * character, 28 * fontMetrics().lineSpacing()).boundedTo(screen()->availableSize() * 0.9));
    table_->setColumnWidth(ProblemsModel::What, width() * 46 / 130);
    table_->setColumnWidth(ProblemsModel::Where, width() * 36 / 130);

    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::close);
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
    cmdCopy_->setText(TextNr(Text::Copy));
    cmdClose_->setText(TextNr(Text::Close));
    AssignMnemonics(*this);
    Q_EMIT model_->headerDataChanged(Qt::Horizontal, 0, ProblemsModel::Columns - 1);
    ShowSelected();
}

void ProblemsList::Refresh() {
    model_->Refresh();
    const bool isEmpty = model_->rowCount() == 0;
    pages_->setCurrentWidget(isEmpty ? static_cast<QWidget*>(empty_) : table_);
    whole_->setVisible(!isEmpty);
    cmdCopy_->setEnabled(!isEmpty);
    if (!isEmpty)
        table_->setCurrentIndex(sorted_->index(0, 0));
}

void ProblemsList::ShowSelected() {
    const QModelIndex index = sorted_->mapToSource(table_->currentIndex());
    const Problem* problem = model_->ProblemAt(index);
    whole_->setPlainText(problem ? QString::fromStdString(ShownText(problem->text)) + QLatin1Char('\n') +
                                       ToQString(problem->subject) + QLatin1Char('\n') +
                                       TextNr(ProblemMeaning(problem->tag)) + QStringLiteral("\n->> ") +
                                       ToQString(problem->tag)
                                 : QString());
}

void ProblemsList::showEvent(QShowEvent* event) {
    Refresh();
    QDialog::showEvent(event);
    table_->setFocus();
}

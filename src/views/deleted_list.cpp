#include "views/deleted_list.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include "project/deletions.h"
#include "shell/words.h"
#include "views/dialogs.h"
#include "views/read_only_table.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

enum Column { Object, Module, Lines, State, Columns };
constexpr int kNumberRole = Qt::UserRole;

}  // namespace

DeletedList::DeletedList(QWidget* parent)
    : QDialog(parent),
      pages_(new QStackedWidget),
      table_(new QTableWidget(0, Columns)),
      empty_(new QLabel),
      remark_(new QLabel),
      cmdUndo_(new QPushButton),
      cmdUndoAll_(new QPushButton),
      cmdGoTo_(new QPushButton),
      cmdSave_(new QPushButton),
      cmdClose_(new QPushButton) {
    setObjectName(QStringLiteral("deletedList"));
    setAttribute(Qt::WA_QuitOnClose, false);
    Build();
    table_->installEventFilter(this);
    connect(table_, &QTableWidget::itemSelectionChanged, this, &DeletedList::ShowSelected);
    connect(table_, &QTableWidget::itemDoubleClicked, this, &DeletedList::GoToPlace);
    connect(cmdUndo_, &QPushButton::clicked, this, &DeletedList::Undo);
    connect(cmdUndoAll_, &QPushButton::clicked, this, [this] {
        std::vector<int> all;
        for (const Deletion& deletion : deletions_->All())
            all.push_back(deletion.nr);
        Q_EMIT UndoAsked(all);
    });
    connect(cmdGoTo_, &QPushButton::clicked, this, &DeletedList::GoToPlace);
    connect(cmdSave_, &QPushButton::clicked, this, &DeletedList::SaveAsked);
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::close);
}

void DeletedList::Build() {
    MakeReadOnly(*table_);
    table_->setObjectName(QStringLiteral("table"));
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_->setTextElideMode(Qt::ElideMiddle);
    table_->setWordWrap(false);
    table_->horizontalHeader()->setStretchLastSection(true);
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    empty_->setForegroundRole(QPalette::PlaceholderText);
    pages_->addWidget(table_);
    pages_->addWidget(empty_);
    remark_->setWordWrap(true);
    remark_->setForegroundRole(QPalette::PlaceholderText);
    auto* buttons = new QHBoxLayout;
    for (const auto& [button, name] : {std::pair{cmdUndo_, "cmdUndo"},
                                       {cmdUndoAll_, "cmdUndoAll"},
                                       {cmdGoTo_, "cmdGoTo"},
                                       {cmdSave_, "cmdSave"},
                                       {cmdClose_, "cmdClose"}}) {
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);  // Enter goes to the place of the row
        if (button == cmdClose_)
            buttons->addStretch();
        buttons->addWidget(button);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pages_, 1);
    layout->addWidget(remark_);
    layout->addLayout(buttons);
    const int character = fontMetrics().averageCharWidth();
    resize(QSize(110 * character, 20 * fontMetrics().lineSpacing()).boundedTo(screen()->availableSize() * 0.9));
    table_->setColumnWidth(Object, width() * 50 / 110);
    table_->setColumnWidth(Module, width() * 25 / 110);
    table_->setColumnWidth(Lines, width() * 10 / 110);
}

void DeletedList::SetSource(const Deletions& deletions) {
    deletions_ = &deletions;
    Texte();
}

void DeletedList::Texte() {
    setWindowTitle(TextNr(Text::DeletedHere));
    table_->setAccessibleName(TextNr(Text::DeletedHere));
    table_->setHorizontalHeaderLabels(
        {TextNr(Text::NameColumn), TextNr(Text::OneModule), TextNr(Text::Lines), TextNr(Text::DeletedState)});
    empty_->setText(TextNr(Text::NoDeletions));
    cmdUndo_->setText(TextNr(Text::UndoDeletion));
    cmdUndoAll_->setText(TextNr(Text::UndoAll));
    cmdGoTo_->setText(TextNr(Text::ProblemGoTo));
    cmdSave_->setText(TextNr(Text::SaveModules) + QChar(0x2026));
    cmdClose_->setText(TextNr(Text::Close));
    AssignMnemonics(*this);
    Refresh();
}

void DeletedList::FillRow(int row) {
    const Deletion& deletion = deletions_->All()[static_cast<std::size_t>(row)];
    const Deletion* const around = deletions_->Encloses(deletion);
    const QString texts[] = {ToQString(deletion.codePath), ToQString(modMain::DirOrFileName(deletion.path, 0)),
                             NumberText(deletion.lines),
                             TextNr(deletions_->IsSaved(deletion) ? Text::GoneFromFile : Text::StillInFile)};
    for (int column = 0; column < Columns; ++column) {
        auto* item = new QTableWidgetItem(texts[column]);
        item->setToolTip(around ? TextNr(Text::UndoOtherFirst, ToQString(around->codePath)) : texts[column]);
        if (column == Lines)
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (around)
            item->setForeground(palette().brush(QPalette::Disabled, QPalette::Text));
        table_->setItem(row, column, item);
    }
    table_->item(row, Object)->setIcon(IconFor(deletion.image));
    table_->item(row, Object)->setData(kNumberRole, deletion.nr);
}

void DeletedList::Refresh() {
    if (!deletions_)
        return;
    const int selected = table_->currentRow();
    const auto count = static_cast<int>(deletions_->All().size());
    {
        const QSignalBlocker filling(table_);
        table_->setRowCount(count);
        for (int row = 0; row < count; ++row)
            FillRow(row);
    }
    pages_->setCurrentWidget(count == 0 ? static_cast<QWidget*>(empty_) : table_);
    if (count > 0)
        table_->selectRow(std::clamp(selected, 0, count - 1));
    cmdUndoAll_->setEnabled(count > 0);
    cmdSave_->setEnabled(deletions_->HasUnsaved());
    ShowSelected();
}

int DeletedList::Selected() const {
    const QTableWidgetItem* const item = table_->item(table_->currentRow(), Object);
    return item ? item->data(kNumberRole).toInt() : 0;
}

void DeletedList::ShowSelected() {
    const Deletion* const deletion = deletions_ ? deletions_->Find(Selected()) : nullptr;
    const Deletion* const around = deletion ? deletions_->Encloses(*deletion) : nullptr;
    cmdGoTo_->setEnabled(deletion);
    cmdUndo_->setEnabled(deletion && !around);
    remark_->setText(around ? TextNr(Text::UndoOtherFirst, ToQString(around->codePath)) : TextNr(Text::DeletedKeys));
}

void DeletedList::Undo() {
    std::vector<int> numbers;
    for (const QModelIndex& index : table_->selectionModel()->selectedRows(Object))
        numbers.push_back(index.data(kNumberRole).toInt());
    if (!numbers.empty())
        Q_EMIT UndoAsked(numbers);
}

void DeletedList::GoToPlace() {
    if (const int nr = Selected(); nr != 0)
        Q_EMIT PlaceChosen(nr);
}

void DeletedList::Present() {
    Refresh();
    if (table_->rowCount() > 0)
        table_->selectRow(table_->rowCount() - 1);
    show();
    raise();
    activateWindow();
    table_->setFocus();
}

bool DeletedList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Delete || key->matches(QKeySequence::Undo)) {
            Undo();
            return true;
        }
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            GoToPlace();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

#include "views/frm_declare.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

#include "views/copy_table.h"
#include "views/dialogs.h"
#include "widgets/qt_text.h"

namespace {

QPushButton* Button(const char* name, Text text) {
    auto* button = new QPushButton(TextNr(text));
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

QLabel* Paragraph(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

}  // namespace

frmDeclare::frmDeclare(const Given& given, QWidget* parent)
    : QDialog(parent), comment_(new QLineEdit(given.comment)), beside_(new QCheckBox) {
    setObjectName(QStringLiteral("frmDeclare"));
    const bool isEntry = given.kind == DeclaredKind::EntryPoint;
    setWindowTitle(TextNr(isEntry ? Text::DeclareEntry : Text::LeaveAlone));
    auto* about = Paragraph(TextNr(isEntry ? Text::EntryComment : Text::LeaveComment, given.name));
    comment_->setObjectName(QStringLiteral("comment"));
    comment_->setAccessibleName(TextNr(Text::Comment));
    comment_->setMinimumWidth(50 * fontMetrics().averageCharWidth());
    beside_->setText(TextNr(Text::KeepBesideProject));
    beside_->setChecked(given.besideProject);
    beside_->setEnabled(!given.besideProject);  // the file of the project comes before any other
    auto* file = Paragraph(TextNr(Text::KeptIn, given.file));
    file->setForegroundRole(QPalette::PlaceholderText);
    file->setVisible(given.isDeclared || given.besideProject);
    auto* remove = Button("cmdRemove", Text::RemoveDeclared);
    remove->setVisible(given.isDeclared);
    auto* ok = Button("cmdDeclare", Text::Ok);
    ok->setDefault(true);
    auto* cancel = Button("cmdCancel", Text::Cancel);
    for (QPushButton* button : {remove, cancel})
        button->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(remove);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(about);
    layout->addWidget(comment_);
    layout->addWidget(beside_);
    layout->addWidget(file);
    layout->addStretch();  // a text that wraps would take the room that is over
    layout->addLayout(buttons);
    AssignMnemonics(*this, {ok, cancel});
    GrowToFit(*this);
    connect(ok, &QPushButton::clicked, this, [this] {
        answer_ = Answer::Declared;
        accept();
    });
    connect(remove, &QPushButton::clicked, this, [this] {
        answer_ = Answer::Removed;
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmDeclare::Answer frmDeclare::Ask() {
    comment_->setFocus();
    return exec() == Accepted ? answer_ : Answer::Cancelled;
}

QString frmDeclare::Comment() const {
    return comment_->text();
}

bool frmDeclare::BesideProject() const {
    return beside_->isChecked();
}

frmDeclared::frmDeclared(QWidget* parent)
    : QDialog(parent),
      table_(new QTableWidget(0, 4)),
      foot_(Paragraph({})),
      cmdGoTo_(Button("cmdGoTo", Text::ProblemGoTo)),
      cmdRemove_(Button("cmdRemove", Text::RemoveDeclared)),
      cmdCopy_(Button("cmdCopy", Text::Copy)),
      cmdClose_(Button("cmdClose", Text::Close)) {
    setObjectName(QStringLiteral("frmDeclared"));
    setWindowTitle(TextNr(Text::DeclaredByUser));
    table_->setAccessibleName(TextNr(Text::DeclaredByUser));
    table_->setHorizontalHeaderLabels(
        {TextNr(Text::DeclaredObject), TextNr(Text::DeclaredAs), TextNr(Text::Comment), TextNr(Text::StateColumn)});
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setTabKeyNavigation(false);
    table_->setShowGrid(false);
    table_->setAlternatingRowColors(true);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table_->horizontalHeader()->setHighlightSections(false);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    CopyTableOnCtrlC(*table_);
    for (QPushButton* button : {cmdGoTo_, cmdRemove_, cmdCopy_})
        button->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {cmdGoTo_, cmdRemove_, cmdCopy_})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(table_, 1);
    layout->addWidget(foot_);
    layout->addLayout(buttons);
    resize(QSize(100 * fontMetrics().averageCharWidth(), 20 * fontMetrics().lineSpacing())
               .boundedTo(screen()->availableSize() * 0.9));
    AssignMnemonics(*this);
    connect(table_, &QTableWidget::itemSelectionChanged, this, &frmDeclared::ShowCurrent);
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::close);
    connect(cmdCopy_, &QPushButton::clicked, this, [this] { CopyTable(*table_); });
    connect(cmdGoTo_, &QPushButton::clicked, this, [this] {
        if (const Row* row = Current())
            Q_EMIT GoToAsked(row->codePath);
        close();
    });
    connect(cmdRemove_, &QPushButton::clicked, this, [this] {
        if (const Row* row = Current())
            Q_EMIT RemoveAsked(std::string(row->codePath));
    });
}

const frmDeclared::Row* frmDeclared::Current() const {
    const auto row = static_cast<std::size_t>(table_->currentRow());
    return row < rows_.size() ? &rows_[row] : nullptr;
}

void frmDeclared::ShowCurrent() {
    cmdGoTo_->setEnabled(Current() && Current()->exists);
    cmdRemove_->setEnabled(Current() != nullptr);
    cmdCopy_->setEnabled(!rows_.empty());
}

void frmDeclared::Show(std::vector<Row> rows, const QString& file) {
    const int before = table_->currentRow();
    rows_ = std::move(rows);
    table_->setRowCount(static_cast<int>(rows_.size()));
    for (int nr = 0; nr < table_->rowCount(); ++nr) {
        const Row& row = rows_[static_cast<std::size_t>(nr)];
        int column = 0;
        for (const QString& text : {row.object, row.kind, row.comment, row.state})
            table_->setItem(nr, column++, new QTableWidgetItem(text));
    }
    if (!rows_.empty())
        table_->setCurrentCell(std::clamp(before, 0, table_->rowCount() - 1), 0);
    foot_->setText(rows_.empty() ? TextNr(Text::NothingDeclared) : TextNr(Text::KeptIn, file));
    ShowCurrent();
}

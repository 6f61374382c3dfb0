#include "views/frm_delete.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <tuple>

#include "shell/program.h"
#include "views/dialogs.h"
#include "views/read_only_table.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

constexpr std::size_t kMostNames = 12;    // the others are a number
constexpr std::size_t kMostWrapped = 20;  // rows that are as high as their texts

QString Names(const std::vector<std::string>& names) {
    QStringList shown;
    for (std::size_t nr = 0; nr < std::min(names.size(), kMostNames); ++nr)
        shown.append(ToQString(names[nr]));
    if (names.size() > kMostNames)
        shown.append(TextNr(Text::MoreLines, NumberText(static_cast<qlonglong>(names.size() - kMostNames))));
    return shown.join(QStringLiteral(", "));
}

QString StillCalledBy(const DeletionRow& row, bool callsRead) {
    QStringList parts;
    if (row.whyNot != Text::None)
        parts.append(TextNr(row.whyNot));
    if (!row.certain.empty())
        parts.append(TextNr(Text::CalledByCertainly, Names(row.certain)));
    if (!row.possible.empty())
        parts.append(TextNr(Text::CalledByPossibly, Names(row.possible)));
    if (parts.isEmpty())
        parts.append(TextNr(!callsRead         ? Text::CallersUnknown
                            : row.losesCallers ? Text::CalledByNobodyElse
                                               : Text::CalledByNobody));
    if (!row.inside.empty())
        parts.append(TextNr(Text::GoesAsWell, Names(row.inside)));
    return parts.join(QStringLiteral("; "));
}

}  // namespace

frmDelete::frmDelete(QWidget* parent)
    : QDialog(parent),
      question_(new QLabel),
      table_(new QTableWidget(0, 3)),
      remark_(new QLabel),
      cmdDelete_(new QPushButton),
      cmdCancel_(new QPushButton) {
    setObjectName(QStringLiteral("frmDelete"));
    setWindowTitle(ToQString(kProgramTitle));
    MakeReadOnly(*table_);
    table_->setTextElideMode(Qt::ElideRight);
    table_->setWordWrap(false);
    table_->horizontalHeader()->setStretchLastSection(true);
    question_->setTextFormat(Qt::PlainText);
    for (QLabel* label : {question_, remark_})
        label->setWordWrap(true);
    remark_->setForegroundRole(QPalette::PlaceholderText);
    cmdDelete_->setObjectName(QStringLiteral("cmdDelete"));
    cmdDelete_->setAutoDefault(false);
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel_->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdDelete_);
    buttons->addWidget(cmdCancel_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(question_);
    layout->addWidget(table_, 1);
    layout->addWidget(remark_);
    layout->addLayout(buttons);
    connect(cmdDelete_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel_, &QPushButton::clicked, this, &QDialog::reject);
}

void frmDelete::Fill(const std::vector<DeletionRow>& rows, bool callsRead) {
    std::vector<const DeletionRow*> sorted;
    sorted.reserve(rows.size());
    for (const DeletionRow& row : rows)
        sorted.push_back(&row);
    // What is still called comes first, as it is what the answer depends on.
    std::stable_sort(sorted.begin(), sorted.end(), [](const DeletionRow* a, const DeletionRow* b) {
        return std::tuple(a->certain.empty(), a->possible.empty()) <
               std::tuple(b->certain.empty(), b->possible.empty());
    });
    table_->setRowCount(static_cast<int>(rows.size()));
    for (int nr = 0; nr < table_->rowCount(); ++nr) {
        const DeletionRow& row = *sorted[static_cast<std::size_t>(nr)];
        auto* name = new QTableWidgetItem(IconFor(row.image), ToQString(row.path));
        name->setToolTip(name->text());
        auto* callers = new QTableWidgetItem(StillCalledBy(row, callsRead));
        callers->setToolTip(callers->text());
        auto* lines = new QTableWidgetItem(NumberText(row.lines));
        lines->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        table_->setItem(nr, 0, name);
        table_->setItem(nr, 1, lines);
        table_->setItem(nr, 2, callers);
    }
    if (!rows.empty())
        table_->selectRow(0);
}

bool frmDelete::Ask(const std::vector<DeletionRow>& rows, bool callsRead) {
    question_->setText(rows.size() == 1 ? TextNr(Text::AskDeleteOne, ToQString(rows.front().path))
                                        : TextNr(Text::AskDelete, NumberText(static_cast<qlonglong>(rows.size()))));
    remark_->setText(TextNr(Text::DeletionKeeps));
    table_->setAccessibleName(question_->text());
    table_->setHorizontalHeaderLabels({TextNr(Text::NameColumn), TextNr(Text::Lines), TextNr(Text::StillCalledBy)});
    cmdDelete_->setText(TextNr(Text::Delete));
    cmdCancel_->setText(TextNr(Text::Cancel));
    AssignMnemonics(*this);
    Fill(rows, callsRead);
    const int character = fontMetrics().averageCharWidth();
    const int shown = std::clamp(table_->rowCount(), 3, 16);
    resize(QSize(110 * character, (shown + 8) * fontMetrics().height() * 3 / 2)
               .boundedTo(screen()->availableSize() * 0.9));
    table_->setColumnWidth(0, width() * 45 / 110);
    table_->resizeColumnToContents(1);
    if (rows.size() <= kMostWrapped) {
        table_->setWordWrap(true);
        table_->resizeRowsToContents();
    }
    cmdCancel_->setFocus();
    return exec() == Accepted;
}

#include "views/frm_keys.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

#include "views/copy_table.h"
#include "views/dialogs.h"
#include "views/read_only_table.h"
#include "widgets/qt_text.h"

frmKeys::frmKeys(QWidget* parent)
    : QDialog(parent), table_(new QTableWidget(0, 2)), cmdCopy_(new QPushButton), cmdClose_(new QPushButton) {
    setObjectName(QStringLiteral("frmKeys"));
    setAttribute(Qt::WA_QuitOnClose, false);
    MakeReadOnly(*table_);
    table_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    table_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    cmdCopy_->setAutoDefault(false);
    cmdClose_->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdCopy_);
    buttons->addStretch();
    buttons->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(table_, 1);
    layout->addLayout(buttons);
    resize(QSize(80 * fontMetrics().averageCharWidth(), 34 * fontMetrics().lineSpacing())
               .boundedTo(screen()->availableSize() * 0.9));
    connect(cmdCopy_, &QPushButton::clicked, this, [this] { CopyTable(*table_); });
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::close);
    Texte();
}

void frmKeys::Texte() {
    setWindowTitle(TextNr(Text::KeyboardShortcuts));
    table_->setAccessibleName(TextNr(Text::KeyboardShortcuts));
    table_->setHorizontalHeaderLabels({TextNr(Text::CommandColumn), TextNr(Text::KeyColumn)});
    cmdCopy_->setText(TextNr(Text::Copy));
    cmdClose_->setText(TextNr(Text::Close));
    AssignMnemonics(*this);
}

void frmKeys::AddRow(const QString& command, const QString& keys) {
    const int row = table_->rowCount();
    table_->insertRow(row);
    table_->setItem(row, 0, new QTableWidgetItem(command));
    table_->setItem(row, 1, new QTableWidgetItem(keys));
}

void frmKeys::Fill(const QList<QAction*>& actions, const QList<std::pair<QString, QString>>& others) {
    table_->setRowCount(0);
    for (const QAction* action : actions) {
        if (action->shortcuts().isEmpty())
            continue;
        QStringList keys;
        for (const QKeySequence& key : action->shortcuts())
            keys.append(key.toString(QKeySequence::NativeText));
        QString command = action->text();
        // Removes "…", which only announces a dialog.
        AddRow(command.remove(QLatin1Char('&')).remove(QChar(0x2026)), keys.join(QStringLiteral(", ")));
    }
    for (const auto& [command, keys] : others)
        AddRow(command, keys);
    table_->setCurrentCell(0, 0);
}

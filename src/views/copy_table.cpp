#include "views/copy_table.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QStringList>
#include <QTableView>

QString TableText(const QTableView& table) {
    const QAbstractItemModel& model = *table.model();
    const QItemSelectionModel* selection = table.selectionModel();
    const bool all = !selection || !selection->hasSelection();
    QString text;
    for (int row = 0; row < model.rowCount(); ++row) {
        if (!all && !selection->isRowSelected(row, QModelIndex()))
            continue;
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells.append(model.index(row, column).data().toString());
        text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return text;
}

void CopyTable(const QTableView& table) {
    QGuiApplication::clipboard()->setText(TableText(table));
}

void CopyTableOnCtrlC(QTableView& table) {
    auto* copy = new QAction(&table);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QAction::triggered, &table, [&table] { CopyTable(table); });
    table.addAction(copy);
}

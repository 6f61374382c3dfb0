#include "views/read_only_table.h"

#include <QHeaderView>
#include <QShortcut>
#include <QTableWidget>
#include <algorithm>

#include "views/copy_table.h"

void HomeAndEndGoToRows(QTableView& table) {
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End})
        new QShortcut(
            key, &table, &table,
            [&table, key] {
                const int row = key == Qt::Key_Home ? 0 : table.model()->rowCount() - 1;
                table.setCurrentIndex(table.model()->index(row, std::max(table.currentIndex().column(), 0)));
            },
            Qt::WidgetShortcut);
}

void MakeReadOnly(QTableWidget& table) {
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setTabKeyNavigation(false);
    table.setShowGrid(false);
    table.setAlternatingRowColors(true);
    table.verticalHeader()->hide();
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() * 3 / 2);
    table.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table.horizontalHeader()->setHighlightSections(false);
    CopyTableOnCtrlC(table);
    HomeAndEndGoToRows(table);
}

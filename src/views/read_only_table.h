// How tables of dialogs look and behave whose cells are only read.
#pragma once

class QTableView;
class QTableWidget;

/// Whole rows are selected, Ctrl+C copies them, Tab leaves the table.
void MakeReadOnly(QTableWidget& table);
/// The keys lead to the first and the last row: rows are chosen, not cells.
void HomeAndEndGoToRows(QTableView& table);

// Copies a table as text: columns separated by tabs, rows by line ends.
#pragma once

#include <QString>

class QTableView;

/// The selected rows from top to bottom, or all rows if none is selected; without the header.
[[nodiscard]] QString TableText(const QTableView& table);
/// Copies that text to the clipboard; CopyTableOnCtrlC does so on each Ctrl+C.
void CopyTable(const QTableView& table);
void CopyTableOnCtrlC(QTableView& table);

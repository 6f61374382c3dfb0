// A table as text: columns parted by tabs, rows by line ends.
#pragma once

#include <QString>

class QTableView;

/// The selected rows from top to bottom, or all of them when none is selected, without the head line.
[[nodiscard]] QString TableText(const QTableView& table);
/// Puts that on the clipboard; Ctrl+C does so too from now on.
void CopyTable(const QTableView& table);
void CopyTableOnCtrlC(QTableView& table);

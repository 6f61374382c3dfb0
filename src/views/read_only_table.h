// How tables of dialogs look and behave whose cells are only read.
#pragma once

class QTableWidget;

/// Whole rows are selected, Ctrl+C copies them, Tab leaves the table.
void MakeReadOnly(QTableWidget& table);

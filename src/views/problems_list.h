// The list of what was reported since the project was opened: what, in which module and line, and what it means for the
// results. It stays open beside the main window.
#pragma once

#include <QAbstractTableModel>
#include <QDialog>
#include <string>
#include <vector>

#include "display/problem_entries.h"
#include "views/rows_model.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSortFilterProxyModel;
class QStackedWidget;
class QTableView;

class ProblemsModel final : public RowsModel<ProblemEntry, QAbstractTableModel> {
    Q_OBJECT
public:
    enum Column { What, Where, Line, Meaning, Columns };

    using RowsModel::RowsModel;

    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
};

class ProblemsList final : public QDialog {
    Q_OBJECT
public:
    explicit ProblemsList(QWidget* parent = nullptr);

    /// Reads the list again; also done whenever the window opens.
    void Refresh();
    void Texte();
    /// Shows the window above the others, with the keys in the table.
    void Present();

Q_SIGNALS:
    /// @param module  key of its node in the project tree
    /// @param line    0 if unknown
    void PlaceChosen(const std::string& module, int line);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ShowSelected();
    void GoToPlace();
    [[nodiscard]] const ProblemEntry* Selected() const;

    ProblemsModel* model_;
    QSortFilterProxyModel* sorted_;
    QTableView* table_;
    QLabel* empty_;
    QStackedWidget* pages_;
    QPlainTextEdit* whole_;
    QLabel* keys_;
    QPushButton* cmdGoTo_;
    QPushButton* cmdCopy_;
    QPushButton* cmdClose_;
    ProblemWalk walk_;
};

// The list of what was reported since the project was opened: what, in which file, and what it means for the results.
#pragma once

#include <QAbstractTableModel>
#include <QDialog>
#include <vector>

#include "shell/errors.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSortFilterProxyModel;
class QStackedWidget;
class QTableView;

class ProblemsModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { What, Where, Meaning, Columns };

    using QAbstractTableModel::QAbstractTableModel;
    /// Reads the current list.
    void Refresh();
    [[nodiscard]] const Problem* ProblemAt(const QModelIndex& index) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<Problem> problems_;
};

class ProblemsList final : public QDialog {
    Q_OBJECT
public:
    explicit ProblemsList(QWidget* parent = nullptr);

    /// Reads the list again; also done whenever the window opens.
    void Refresh();
    void Texte();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ShowSelected();

    ProblemsModel* model_;
    QSortFilterProxyModel* sorted_;
    QTableView* table_;
    QLabel* empty_;
    QStackedWidget* pages_;
    QPlainTextEdit* whole_;
    QPushButton* cmdCopy_;
    QPushButton* cmdClose_;
};

// The list behind a number of the overview: one line for each object, sorted by a click on a heading.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <vector>

#include "display/overview_lists.h"
#include "views/rows_model.h"

class QSortFilterProxyModel;

class OverviewModel final : public RowsModel<ListedObject, QAbstractTableModel> {
    Q_OBJECT

public:
    enum Column { Change, Name, Kind, Where, Lines, Columns };
    using RowsModel::RowsModel;

    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
};

class OverviewTable final : public QTableView {
    Q_OBJECT

public:
    explicit OverviewTable(QWidget* parent = nullptr);

    void Show(std::vector<ListedObject> rows);
    /// Other rows of the same list: in the order that the user has chosen, with the same one current if it is there.
    void ShowAgain(std::vector<ListedObject> rows, const std::string& currentKey);
    /// Key of the current row; empty for none.
    [[nodiscard]] std::string CurrentKey() const;
    void Texte();

Q_SIGNALS:
    /// Enter or double click.
    void ObjectChosen(const std::string& key);
    /// Esc.
    void Left();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Choose(const QModelIndex& index);
    void FitRows();
    void FitColumns(bool hasChanges);
    [[nodiscard]] int WidestText(int column) const;
    /// Names get up to two thirds of the width that other columns leave, and more if places do not need it.
    void ShareWidth();

    OverviewModel* model_;
    QSortFilterProxyModel* sorted_;
    int nameWidth_ = 0;
    int placeWidth_ = 0;
};

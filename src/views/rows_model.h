// What the models of lists and tables share: plain rows on one side, indices on the other.
#pragma once

#include <QAbstractItemModel>
#include <vector>

/// @tparam Base  QAbstractListModel or QAbstractTableModel
template <class Row, class Base>
class RowsModel : public Base {
public:
    using Base::Base;

    void Show(std::vector<Row> rows) {
        this->beginResetModel();
        rows_ = std::move(rows);
        this->endResetModel();
    }
    [[nodiscard]] const std::vector<Row>& Rows() const { return rows_; }
    /// Null for an index of none.
    [[nodiscard]] const Row* RowAt(const QModelIndex& index) const {
        const auto row = static_cast<std::size_t>(index.row());
        return index.isValid() && row < rows_.size() ? &rows_[row] : nullptr;
    }
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }

private:
    std::vector<Row> rows_;
};

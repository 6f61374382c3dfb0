// A list of sentences, headings and objects: the page "Why", the ways between two objects, what depends on an object.
// What only possibly leads on differs in its arrow and its words, not in a colour alone.
#pragma once

#include <QAbstractListModel>
#include <functional>
#include <string>
#include <vector>

#include "display/command_table.h"
#include "display/reach_rows.h"
#include "views/object_list.h"
#include "views/rows_model.h"

class ReachModel final : public RowsModel<ReachRow, QAbstractListModel> {
    Q_OBJECT

public:
    enum Role { KindRole = Qt::UserRole + 10 };

    using RowsModel::RowsModel;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
};

class ReachList final : public ObjectList {
    Q_OBJECT

public:
    explicit ReachList(QWidget* parent = nullptr);

    void Show(std::vector<ReachRow> rows);
    [[nodiscard]] const std::vector<ReachRow>& Rows() const { return model_->Rows(); }
    [[nodiscard]] const ReachRow* CurrentRow() const { return model_->RowAt(currentIndex()); }
    /// The first row that leads to an object becomes the current one; the first of all if none does.
    void SetCurrentObject();
    /// Makes the row with that place the current one; nothing is chosen by that.
    void SetCurrentPlace(int place);
    /// The rows whose objects the user means: several selected ones, otherwise all of the section of the current one.
    [[nodiscard]] std::vector<std::string> KeysMeant() const;

Q_SIGNALS:
    /// @param stays  false if the user wants to go on in the code
    void RowChosen(const ReachRow& row, bool stays);

protected:
    [[nodiscard]] std::string KeyAt(const QModelIndex& index) const override;
    void Choose(const QModelIndex& index, bool stays) override;
    [[nodiscard]] QString CopyOf(bool all) const override;
    void AddItems(QMenu& menu) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    ReachList(ReachModel* model, QWidget* parent);

    ReachModel* model_;
};

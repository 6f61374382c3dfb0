// The list of all places that call or use the current object. Its rows are asked for only while it can be seen, as
// there can be tens of thousands.
#pragma once

#include <QAbstractListModel>
#include <functional>
#include <string>
#include <vector>

#include "display/call_places.h"
#include "display/command_table.h"
#include "views/object_list.h"
#include "views/rows_model.h"

class ReferencesModel final : public RowsModel<ReferenceRow, QAbstractListModel> {
    Q_OBJECT

public:
    using RowsModel::RowsModel;
    /// One line for each row: where, line, kind, member, code; separated by tabs.
    [[nodiscard]] QString AsText() const;
    [[nodiscard]] static QString AsText(const ReferenceRow& row);

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

class ReferencesList final : public ObjectList {
    Q_OBJECT

public:
    explicit ReferencesList(QWidget* parent = nullptr);

    /// Sets where the rows come from.
    void SetSource(std::function<std::vector<ReferenceRow>()> source) { source_ = std::move(source); }
    /// The rows are others now.
    /// @param whyNone  shown in their place if there are none
    void Renew(int count, const QString& whyNone);
    /// How many there are, also before they were asked for.
    [[nodiscard]] int Count() const { return count_; }
    [[nodiscard]] int CurrentRow() const { return currentIndex().row(); }
    /// Makes a row the current one; nothing is chosen by that.
    void SetCurrentRow(int row);
    void Texte();

Q_SIGNALS:
    /// @param stays  false if the user wants to go on in the code
    void RowChosen(int row, bool stays);

protected:
    /// That of the procedure or module that the row is in.
    [[nodiscard]] std::string KeyAt(const QModelIndex& index) const override;
    void Choose(const QModelIndex& index, bool stays) override;
    [[nodiscard]] QString CopyOf(bool all) const override;
    void AddItems(QMenu& menu) override;
    void showEvent(QShowEvent* event) override;

private:
    ReferencesList(ReferencesModel* model, QWidget* parent);
    void Load();

    ReferencesModel* model_;
    std::function<std::vector<ReferenceRow>()> source_;
    int count_ = 0;
    int row_ = -1;  // to be the current one once the rows are there
    bool stale_ = false;
};

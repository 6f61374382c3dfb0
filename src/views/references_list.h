// The list of all places that call or use the current object. Its rows are asked for only while it can be seen, as
// there can be tens of thousands.
#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <functional>
#include <string>
#include <vector>

#include "display/call_places.h"
#include "display/command_table.h"

class ReferencesModel final : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;
    void Show(std::vector<ReferenceRow> rows);
    [[nodiscard]] const ReferenceRow* RowAt(const QModelIndex& index) const;
    /// One line for each row: where, line, kind, member, code; separated by tabs.
    [[nodiscard]] QString AsText() const;
    [[nodiscard]] static QString AsText(const ReferenceRow& row);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<ReferenceRow> rows_;
};

class ReferencesList final : public QListView {
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
    /// The key of the procedure or module that the current row is in; empty for none.
    [[nodiscard]] std::string CurrentObject() const;
    void Texte();

Q_SIGNALS:
    /// @param stays  false if the user wants to go on in the code
    void RowChosen(int row, bool stays);
    void CommandAsked(Command command, const std::string& key);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Load();
    void CopyRow() const;

    ReferencesModel* model_;
    std::function<std::vector<ReferenceRow>()> source_;
    int count_ = 0;
    int row_ = -1;  // to be the current one once the rows are there
    bool stale_ = false;
    QString whyNone_;
};

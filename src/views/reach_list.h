// A list of sentences, headings and objects: the page "Why", the ways between two objects, what depends on an object.
// What only possibly leads on differs in its arrow and its words, not in a colour alone.
#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <functional>
#include <string>
#include <vector>

#include "display/command_table.h"
#include "display/reach_rows.h"

class QMenu;

class ReachModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { KindRole = Qt::UserRole + 10 };

    using QAbstractListModel::QAbstractListModel;
    void Show(std::vector<ReachRow> rows);
    [[nodiscard]] const std::vector<ReachRow>& Rows() const { return rows_; }
    [[nodiscard]] const ReachRow* RowAt(const QModelIndex& index) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::vector<ReachRow> rows_;
};

class ReachList final : public QListView {
    Q_OBJECT

public:
    explicit ReachList(QWidget* parent = nullptr);

    void Show(std::vector<ReachRow> rows);
    [[nodiscard]] const std::vector<ReachRow>& Rows() const { return model_->Rows(); }
    /// Shown in place of rows if there are none.
    void SetWhyNone(const QString& whyNone);
    [[nodiscard]] const ReachRow* CurrentRow() const { return model_->RowAt(currentIndex()); }
    /// Makes the row with that place the current one; nothing is chosen by that.
    void SetCurrentPlace(int place);
    /// The key of the object of the current row; empty for none.
    [[nodiscard]] std::string CurrentObject() const;
    /// The rows whose objects the user means: several selected ones, otherwise all of the section of the current one.
    [[nodiscard]] std::vector<std::string> KeysMeant() const;

Q_SIGNALS:
    /// @param stays  false if the user wants to go on in the code
    void RowChosen(const ReachRow& row, bool stays);
    void CommandAsked(Command command, const std::string& key);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Choose(const QModelIndex& index, bool stays);
    void Copy(bool all) const;

    ReachModel* model_;
    QString whyNone_;
};

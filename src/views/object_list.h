// A list whose rows lead to objects: the keys, clicks and context menu that all such lists have.
#pragma once

#include <QListView>
#include <string>

#include "display/command_table.h"

class QMenu;

class ObjectList : public QListView {
    Q_OBJECT

public:
    ObjectList(QAbstractItemModel* model, QWidget* parent);

    /// The key of the object of the current row; empty for none.
    [[nodiscard]] std::string CurrentObject() const { return KeyAt(currentIndex()); }
    /// Shown in place of rows if there are none.
    void SetWhyNone(const QString& whyNone);

Q_SIGNALS:
    /// A command is to be carried out for the object of a row.
    void CommandAsked(Command command, const std::string& key);

protected:
    /// The key of the object of a row; empty for none.
    [[nodiscard]] virtual std::string KeyAt(const QModelIndex& index) const = 0;
    /// @param stays  false if the user wants to go on in the code
    virtual void Choose(const QModelIndex& index, bool stays) = 0;
    /// The current row, or all, as text for other programs.
    [[nodiscard]] virtual QString CopyOf(bool all) const = 0;
    /// Adds what the context menu of the current row has after the items of its object.
    virtual void AddItems(QMenu& menu) = 0;

    void Copy(bool all) const;

    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString whyNone_;
};

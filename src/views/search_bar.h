// The search over the tree: a field, and below it, over the rest of the window, the objects that fit what is typed.
#pragma once

#include <QAbstractListModel>
#include <QPointer>
#include <QWidget>
#include <string>
#include <vector>

#include "display/command_table.h"
#include "display/object_search.h"
#include "views/rows_model.h"

class QFrame;
class QLabel;
class QLineEdit;
class QListView;

/// What is shown of a hit; stays valid without the object.
struct HitRow {
    QString name;
    std::string_view image;
    QVariantList ranges;  // of the name, start and length in turn
    QString about;
    QString tip;
    std::string nodeKey;
};

class HitsModel final : public RowsModel<HitRow, QAbstractListModel> {
    Q_OBJECT
public:
    using RowsModel::RowsModel;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

class SearchBar final : public QWidget {
    Q_OBJECT
public:
    explicit SearchBar(QWidget* parent = nullptr);

    /// Focuses the field and selects its text.
    void Focus();
    /// Closes the list of hits.
    void Close();
    /// To be called before objects become invalid: a project is closed or opened, or modules are read again. Drops all
    /// hits.
    void ProjectChanges();
    /// The project has gone, and what was searched for in it.
    void Clear();
    void Texte();
    /// Key of the node of the selected hit; empty while the list is closed.
    [[nodiscard]] std::string HitKey() const;

Q_SIGNALS:
    /// Key of the node of the chosen object; the list is already closed.
    void ObjectChosen(const std::string& nodeKey);
    /// From the context menu of a hit; the list is already closed.
    void CommandAsked(Command command, const std::string& nodeKey);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Search();
    void Open();
    void PlaceList();
    void ShowMenu(const QPoint& point);
    void Choose(const QModelIndex& index);
    void MoveBy(int rows);
    void Select(int row);
    void GiveFocusBack();
    bool HandleKey(int key);

    QLineEdit* field_;
    QFrame* list_;  // a child of the window, so that it covers the panes; added last, it is deleted last
    QListView* view_;
    QLabel* foot_;
    HitsModel* model_;
    ObjectSearch search_;
    QPointer<QWidget> focusBefore_;
};

// A tree of nodes in the form that Qt's views need: rows, columns and roles. All its data is in the Baum.
//
// While a Baum is being filled, which can run the event loop, the model is empty for its view: a repaint must not see
// half a tree.
#pragma once

#include <QAbstractItemModel>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <functional>
#include <map>
#include <string>

#include "display/baum.h"
#include "widgets/key_mime.h"

struct Settings;

class BaumModel : public QAbstractItemModel, private BaumListener {
    Q_OBJECT

public:
    enum Role {
        KeyRole = Qt::UserRole,
        DimmedRole,  // true for dead and undead objects
    };

    /// Both must outlive the model, which listens to the tree.
    BaumModel(Baum& tree, const Settings& settings, QObject* parent = nullptr);
    ~BaumModel() override;

    [[nodiscard]] Baum& Tree() const { return tree_; }
    /// The node of an index, or null.
    [[nodiscard]] BaumNode* NodeAt(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex IndexOf(const BaumNode* node) const;
    /// Whether the Baum is being filled and the view sees nothing.
    [[nodiscard]] bool IsHidden() const { return hidden_; }

    void SetCheckBoxes(bool on);
    [[nodiscard]] bool CheckBoxes() const { return checkBoxes_; }
    /// Sets the source of tool tips; no tool tip is shown for an empty text.
    void SetToolTips(std::function<QString(const BaumNode&)> toolTips) { toolTips_ = std::move(toolTips); }
    /// Sets the source of what screen readers say after the text of a node.
    void SetSpokenTexts(std::function<QString(const BaumNode&)> spokenTexts) { spokenTexts_ = std::move(spokenTexts); }
    /// Sets the look of ordinary text; bold, italic and dimmed text are derived from it.
    void SetLooks(const QFont& font, const QPalette& palette);
    /// Renders all icons again, as after a change of the palette.
    void ForgetIcons() {
        icons_.clear();
        faintIcons_.clear();
    }

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Takes check marks only.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;

Q_SIGNALS:
    /// The user has checked or unchecked a node.
    void NodeChecked(BaumNode& node);
    // Requests of the Baum to its view.
    void NodeExpanded(const QModelIndex& index, bool expanded);
    void AllNodesCollapsed();
    void NodeSelected(const QModelIndex& index);
    void NodeToBeVisible(const QModelIndex& index);
    void ManyNodesChanged();
    /// A filling has ended, and all listeners have processed its reset.
    void Filled();

private:
    void BeginReset() override;
    void EndReset() override;
    void BeginInsert(const BaumNode* parent, int row) override;
    void EndInsert() override;
    void BeginRemove(const BaumNode* parent, int row) override;
    void EndRemove() override;
    void Changed(const BaumNode& node) override;
    void ManyChanged() override;
    void ExpandedChanged(const BaumNode& node) override;
    void AllCollapsed() override;
    void SelectedChanged(const BaumNode* node) override;
    void EnsureVisible(const BaumNode& node) override;

    [[nodiscard]] const std::vector<BaumNode*>& Below(const QModelIndex& parent) const;
    [[nodiscard]] const QIcon& IconOf(const BaumNode& node) const;
    [[nodiscard]] QVariant ColorOf(const BaumNode& node) const;

    Baum& tree_;
    const Settings& settings_;
    bool hidden_ = false;
    bool checkBoxes_ = false;
    std::function<QString(const BaumNode&)> toolTips_, spokenTexts_;
    QFont fonts_[2][2];  // [bold][italic]
    QBrush dimmed_;
    QColor ground_;  // background of the texts
    mutable std::map<std::string, QIcon, std::less<>> icons_, faintIcons_;
};

// One of the trees of the window. It tells what the user did with a node, and follows what the program does with the
// Baum; folds and the selection are kept there.
#pragma once

#include <QTimer>
#include <QTreeView>
#include <string>

#include "shell/text_numbers.h"
#include "views/baum_model.h"

struct Settings;

class BaumView : public QTreeView {
    Q_OBJECT

public:
    /// Both must outlive the view.
    BaumView(Baum& tree, const Settings& settings, QWidget* parent = nullptr);

    [[nodiscard]] Baum& Tree() const { return model_->Tree(); }
    [[nodiscard]] BaumModel& Model() const { return *model_; }

    void SetCheckBoxes(bool on) { model_->SetCheckBoxes(on); }
    void SetToolTips(std::function<QString(const BaumNode&)> toolTips) { model_->SetToolTips(std::move(toolTips)); }
    /// The accessible name and what stands in the pane while the tree has no nodes.
    void SetTexte(Text name, Text empty);
    /// Says something else in the empty pane, until the next SetTexte.
    void SetEmptyText(const QString& text);
    /// A right click only tells; the menu then comes by the keyboard.
    void SetRightClickTells(bool tells) { rightClickTells_ = tells; }
    /// Nodes of all trees may be dropped here, or copied there and pasted here.
    void SetAcceptsKeys(bool accepts);

    /// All texts in the language at hand.
    void Texte();
    /// The font of the settings; that of the interface where the system lacks it.
    void ApplyTreeFont();

    // To the clipboard, of the current node: its text, its address, and itself with all below it.
    void CopyName() const { CopyNode(currentIndex(), TextOf); }
    void CopyCodePath() const { CopyNode(currentIndex(), PathOf); }
    void CopyAsText() const { CopyNode(currentIndex(), TreeOf); }

    void keyboardSearch(const QString& search) override;

Q_SIGNALS:
    // Only nodes of objects are activated or asked for their context.
    /// By a click, or by moving there with the keyboard.
    void NodeActivated(const std::string& key);
    /// By a right click.
    void NodeContext(const std::string& key);
    void NodeChecked(BaumNode& node);
    void KeyDropped(const std::string& key);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void Wire();
    void Activate(const QModelIndex& index);
    void ShowSelected();
    void Restore();
    void UpdateLooks();
    void ShowMenu(const QModelIndex& index, const QPoint& globalPos);
    [[nodiscard]] bool IsCutOff(const QModelIndex& index) const;
    void Copy();
    [[nodiscard]] static QString TextOf(const BaumNode& node);
    [[nodiscard]] static QString PathOf(const BaumNode& node);
    [[nodiscard]] static QString TreeOf(const BaumNode& node);
    void CopyNode(const QModelIndex& index, QString (*what)(const BaumNode&)) const;
    void TakeKeys(const QMimeData* mime);
    void TakeKeysOnly(QDropEvent& event) const;
    [[nodiscard]] QPixmap DragPicture(const QModelIndex& index) const;

    const Settings& settings_;
    BaumModel* model_;
    Text name_ = Text::None;
    Text empty_ = Text::None;
    QString emptyText_;
    bool rightClickTells_ = false;
    bool acceptsKeys_ = false;
    bool hasChecked_ = false;  // by the mouse button that is let go just now
    int scrollBeforeFill_ = 0;
    QTimer repeatedKeys_;  // a key that is held down activates when it comes to rest
    QString searched_;     // typed so far
    qint64 searchedAt_ = 0;
};

// One of the trees of the window. It emits what the user does with a node, and follows the changes of its Baum, which
// keeps folds and the selection.
#pragma once

#include <QTimer>
#include <QTreeView>
#include <string>

#include "display/command_table.h"
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
    void SetSpokenTexts(std::function<QString(const BaumNode&)> texts) { model_->SetSpokenTexts(std::move(texts)); }
    /// Sets the accessible name and the text shown while the tree has no nodes.
    void SetTexte(Text name, Text empty);
    /// Shows another text in the empty pane, until the next SetTexte.
    void SetEmptyText(const QString& text);
    /// A right click and Enter go to the object, as a click does something else; the menu is then opened with the
    /// keyboard.
    void SetLeadsOn(bool leadsOn) { leadsOn_ = leadsOn; }
    /// The key Delete and the menu delete objects.
    void SetDeletes(bool deletes) { deletes_ = deletes; }
    void SetUnfold(std::function<void(BaumNode&)> unfold) { model_->SetUnfold(std::move(unfold)); }
    /// Nodes of all trees may be dropped here, or copied there and pasted here.
    void SetAcceptsKeys(bool accepts);

    /// Sets all texts in the language of the program.
    void Texte();
    /// Applies the font of the settings, in the family of the interface if the system lacks theirs.
    void ApplyTreeFont();

    // To the clipboard, of the current node: its text, its address, and itself with all below it.
    void CopyName() const { CopyNode(currentIndex(), TextOf); }
    void CopyCodePath() const { CopyNode(currentIndex(), PathOf); }
    void CopyAsText() const { CopyNode(currentIndex(), TreeOf); }

    /// The key of the current node's object in the project tree; empty for none.
    [[nodiscard]] std::string CurrentObject() const { return ObjectAt(currentIndex()); }

    void keyboardSearch(const QString& search) override;

Q_SIGNALS:
    // Only of nodes of objects.
    /// By a click, or by moving there with the keyboard.
    void NodeActivated(const std::string& key);
    /// By the menu; Command::GoTo by Ctrl+click, or what SetLeadsOn says, as well. The key is that of the object's node
    /// in the project.
    void CommandAsked(Command command, const std::string& key);
    /// By the key Delete, or by the menu.
    void DeleteAsked(const std::string& key);
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
    void GoTo(const QModelIndex& index);
    [[nodiscard]] std::string ObjectAt(const QModelIndex& index) const;
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
    bool leadsOn_ = false;
    bool deletes_ = false;
    bool acceptsKeys_ = false;
    bool hasChecked_ = false;  // by the mouse click in progress, which then must not activate the node
    int scrollBeforeFill_ = 0;
    QTimer repeatedKeys_;  // activates the node once a held key rests
    QString searched_;     // typed so far
    qint64 searchedAt_ = 0;
};

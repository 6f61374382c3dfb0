#include "views/baum_view.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDateTime>
#include <QHelpEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QStyleHints>
#include <QToolTip>

#include "display/node_objects.h"
#include "platform/code_page.h"
#include "shell/settings.h"
#include "views/commands.h"
#include "widgets/code_style.h"
#include "widgets/empty_text.h"
#include "widgets/qt_text.h"

namespace {

// While an arrow key is held down, nodes pass faster than code can be shown. The node is shown after this rest.
constexpr int kRestMilliseconds = 80;

bool BeginsWith(std::string_view text, std::string_view lowerStart) {
    if (text.size() < lowerStart.size())
        return false;
    const auto& lower = ActiveCodePage().LowerTable();
    for (std::size_t i = 0; i < lowerStart.size(); ++i)
        if (lower[static_cast<unsigned char>(text[i])] != static_cast<unsigned char>(lowerStart[i]))
            return false;
    return true;
}

bool IsCtrlClick(const QMouseEvent& event) {
    return event.button() == Qt::LeftButton && event.modifiers().testFlag(Qt::ControlModifier);
}

// The node in the line below, or null at the end.
BaumNode* NextLine(const BaumNode& node) {
    if (node.Expanded() && node.Child())
        return node.Child();
    for (const BaumNode* at = &node; at; at = at->Parent())
        if (BaumNode* next = at->Next())
            return next;
    return nullptr;
}

// The node in whose line the user sees a node: itself, or the folded one above it.
const BaumNode* LineOf(const BaumNode& node) {
    const BaumNode* line = &node;
    for (const BaumNode* above = node.Parent(); above; above = above->Parent())
        if (!above->Expanded())
            line = above;
    return line;
}

}  // namespace

BaumView::BaumView(Baum& tree, const Settings& settings, QWidget* parent)
    : QTreeView(parent), settings_(settings), model_(new BaumModel(tree, settings, this)) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setTextElideMode(Qt::ElideRight);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    // Long texts are elided and shown in full as tool tips; a scroll bar would cost a line in the narrow panes.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    repeatedKeys_.setSingleShot(true);
    repeatedKeys_.setInterval(kRestMilliseconds);
    setModel(model_);
    ApplyTreeFont();
    Wire();
}

void BaumView::Wire() {
    connect(this, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        if (!hasChecked_)
            Activate(index);
    });
    connect(&repeatedKeys_, &QTimer::timeout, this, [this] { Activate(currentIndex()); });
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        if (BaumNode* node = model_->NodeAt(index))
            Tree().SetExpanded(*node, true);
    });
    connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        if (BaumNode* node = model_->NodeAt(index))
            Tree().SetExpanded(*node, false);
    });
    connect(model_, &BaumModel::NodeExpanded, this, &QTreeView::setExpanded);
    connect(model_, &BaumModel::AllNodesCollapsed, this, &QTreeView::collapseAll);
    connect(model_, &BaumModel::NodeSelected, this, &BaumView::ShowSelected);
    connect(model_, &BaumModel::NodeToBeVisible, this, [this](const QModelIndex& index) { scrollTo(index); });
    connect(model_, &BaumModel::ManyNodesChanged, viewport(), qOverload<>(&QWidget::update));
    connect(model_, &BaumModel::modelAboutToBeReset, this, [this] {
        if (!model_->IsHidden())
            scrollBeforeFill_ = verticalScrollBar()->value();
    });
    connect(model_, &BaumModel::Filled, this, &BaumView::Restore);
    // Screen readers read it with the name, so a filled tree must not have it.
    const auto describe = [this] { setAccessibleDescription(Tree().Count() == 0 ? emptyText_ : QString()); };
    connect(model_, &BaumModel::modelReset, this, describe);
    for (const auto changed : {&BaumModel::rowsInserted, &BaumModel::rowsRemoved})
        connect(model_, changed, this, describe);
    connect(model_, &BaumModel::NodeChecked, this, [this](BaumNode& node) {
        hasChecked_ = true;
        Q_EMIT NodeChecked(node);
    });
}

void BaumView::SetTexte(Text name, Text empty) {
    name_ = name;
    empty_ = empty;
    Texte();
}

void BaumView::SetEmptyText(const QString& text) {
    if (emptyText_ == text)
        return;
    emptyText_ = text;
    if (Tree().Count() == 0)
        setAccessibleDescription(text);
    viewport()->update();
}

void BaumView::Texte() {
    if (name_ != Text::None)
        setAccessibleName(TextNr(name_));
    if (empty_ != Text::None)
        SetEmptyText(TextNr(empty_));
}

void BaumView::SetAcceptsKeys(bool accepts) {
    acceptsKeys_ = accepts;
    setDragDropMode(accepts ? DragDrop : DragOnly);
}

void BaumView::ApplyTreeFont() {
    setFont(FontFromSetting(settings_.TreeFont, QApplication::font("QTreeView")));
    UpdateLooks();
}

void BaumView::UpdateLooks() {
    model_->SetLooks(font(), palette());
    viewport()->update();
}

void BaumView::Activate(const QModelIndex& index) {
    repeatedKeys_.stop();
    BaumNode* node = model_->NodeAt(index);
    if (!node)
        return;
    const NodeId id = node->Id();  // what follows may take the node away
    Tree().Select(node);
    if (id.kind == NodeKind::Object)
        Q_EMIT NodeActivated(id.key);
}

std::string BaumView::ObjectAt(const QModelIndex& index) const {
    const BaumNode* node = model_->NodeAt(index);
    return node && node->Kind() == NodeKind::Object ? std::string(OwnKeyOf(node->Key())) : std::string();
}

void BaumView::GoTo(const QModelIndex& index) {
    repeatedKeys_.stop();
    if (const std::string key = ObjectAt(index); !key.empty())
        Q_EMIT CommandAsked(Command::GoTo, key);
}

// Moves the current line to the selection of the Baum.
void BaumView::ShowSelected() {
    const QModelIndex selected = model_->IndexOf(Tree().Selected());
    if (selected == currentIndex() && selectionModel()->isSelected(selected))
        return;
    selectionModel()->setCurrentIndex(selected, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

// Restores folds, selection and scroll position after a filling: for a QTreeView it was a reset, which clears them.
void BaumView::Restore() {
    // The layout is still pending, so setExpanded only records the state and does not lay out the tree for each node.
    std::vector<BaumNode*> open = Tree().Roots();
    while (!open.empty()) {
        const BaumNode& node = *open.back();
        open.pop_back();
        if (node.Expanded())
            setExpanded(model_->IndexOf(&node), true);
        open.insert(open.end(), node.ChildNodes().begin(), node.ChildNodes().end());
    }
    if (Tree().Selected())
        ShowSelected();
    if (scrollBeforeFill_ > 0) {
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(scrollBeforeFill_);
    }
}

// The model's own search would ask for each text as a QString; a walk over the visible lines compares bytes.
void BaumView::keyboardSearch(const QString& search) {
    const std::vector<BaumNode*>& roots = Tree().Roots();
    if (search.isEmpty() || roots.empty() || model_->IsHidden())
        return;
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const bool goesOn = now - searchedAt_ <= QGuiApplication::styleHints()->keyboardInputInterval();
    searchedAt_ = now;
    const bool again = goesOn && searched_.size() == 1 && searched_.compare(search, Qt::CaseInsensitive) == 0;
    if (!again)
        searched_ = goesOn ? searched_ + search : search;
    const std::string start = LowerCase(FromQString(searched_));
    const BaumNode* selected = model_->NodeAt(currentIndex());
    const BaumNode* current = selected ? LineOf(*selected) : nullptr;
    // A single letter, also repeated, goes to the next match; a longer text may match the current line, as in Windows
    // trees.
    const bool leaves = searched_.size() == 1;
    const BaumNode* from = current ? (leaves ? NextLine(*current) : current) : nullptr;
    const BaumNode* begin = from ? from : roots.front();
    const BaumNode* node = begin;
    do {
        if (BeginsWith(node->Text(), start)) {
            setCurrentIndex(model_->IndexOf(node));
            return;
        }
        node = NextLine(*node);
        if (!node)
            node = roots.front();
    } while (node != begin);
}

void BaumView::keyPressEvent(QKeyEvent* event) {
    if (event == QKeySequence::Copy)
        return Copy();
    if (event == QKeySequence::Paste && acceptsKeys_)
        return TakeKeys(QApplication::clipboard()->mimeData());
    if (event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier && deletes_) {
        if (const std::string key = CurrentObject(); !key.empty())
            Q_EMIT DeleteAsked(key);
        return;
    }
    const QModelIndex before = currentIndex();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    hasChecked_ = false;
    if (isEnter && leadsOn_)
        return GoTo(before);
    QTreeView::keyPressEvent(event);
    // Enter shows the current node again, such as after a click elsewhere.
    if (currentIndex() == before && !isEnter)
        return;
    if (event->isAutoRepeat())
        repeatedKeys_.start();
    else
        Activate(currentIndex());
    event->accept();
}

void BaumView::keyReleaseEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat() && repeatedKeys_.isActive())
        Activate(currentIndex());
    QTreeView::keyReleaseEvent(event);
}

void BaumView::mousePressEvent(QMouseEvent* event) {
    hasChecked_ = false;
    // Qt would select the node on a right click, but the selection has to stay on the object shown. With Ctrl it would
    // take the selection away.
    if (event->button() == Qt::RightButton || IsCtrlClick(*event))
        event->accept();
    else
        QTreeView::mousePressEvent(event);
}

void BaumView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton || IsCtrlClick(*event)) {
        event->accept();
        if (leadsOn_ || event->button() != Qt::RightButton)
            GoTo(indexAt(event->position().toPoint()));
        return;
    }
    QTreeView::mouseReleaseEvent(event);
    if (hasChecked_)
        ShowSelected();
    hasChecked_ = false;
}

void BaumView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    if (byMouse && leadsOn_)
        return;
    const QModelIndex index = byMouse ? indexAt(event->pos()) : currentIndex();
    if (!index.isValid())
        return;
    ShowMenu(index, byMouse ? event->globalPos() : viewport()->mapToGlobal(visualRect(index).bottomLeft()));
}

void BaumView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (Tree().Count() == 0)
        PaintEmptyText(*this, palette().color(QPalette::Base), emptyText_);
}

void BaumView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        model_->ForgetIcons();
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        UpdateLooks();
}

bool BaumView::IsCutOff(const QModelIndex& index) const {
    QStyleOptionViewItem option;
    // The hover text of the model comes first; a text that is cut off is only shown if there is none.
    initViewItemOption(&option);
    return itemDelegateForIndex(index)->sizeHint(option, index).width() > visualRect(index).width();
}

bool BaumView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(event);
    const auto& help = static_cast<QHelpEvent&>(*event);
    const QModelIndex index = indexAt(help.pos());
    QString text = index.data(Qt::ToolTipRole).toString();
    if (text.isEmpty() && index.isValid() && IsCutOff(index))
        text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty())
        text = toolTip();
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help.globalPos(), text, viewport(), visualRect(index));
    return true;
}

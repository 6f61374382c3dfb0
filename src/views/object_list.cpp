#include "views/object_list.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>

#include "views/commands.h"
#include "views/context_ways.h"
#include "widgets/empty_text.h"

ObjectList::ObjectList(QAbstractItemModel* model, QWidget* parent) : QListView(parent) {
    model->setParent(this);
    setModel(model);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    // Like the trees, which Tab leaves as well.
    setTabKeyNavigation(false);
    connect(this, &QListView::doubleClicked, this, [this](const QModelIndex& index) { Choose(index, false); });
}

void ObjectList::SetWhyNone(const QString& whyNone) {
    whyNone_ = whyNone;
    viewport()->update();
}

void ObjectList::Copy(bool all) const {
    if (all || currentIndex().isValid())
        QApplication::clipboard()->setText(CopyOf(all));
}

void ObjectList::keyPressEvent(QKeyEvent* event) {
    if (event == QKeySequence::Copy)
        Copy(false);
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentIndex().isValid())
        Choose(currentIndex(), false);
    else
        return QListView::keyPressEvent(event);
    event->accept();
}

void ObjectList::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool extends = selectionMode() == ExtendedSelection && event->modifiers() != Qt::NoModifier;
    if (!index.isValid() || event->button() != Qt::LeftButton || extends)
        return;
    const std::string key = KeyAt(index);
    if (event->modifiers().testFlag(Qt::ControlModifier) && !key.empty())
        Q_EMIT CommandAsked(Command::GoTo, key);
    else
        Choose(index, true);
}

void ObjectList::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    const QModelIndex index = byMouse ? indexAt(event->pos()) : currentIndex();
    if (!index.isValid())
        return;
    selectionModel()->setCurrentIndex(index, selectionModel()->isSelected(index) ? QItemSelectionModel::NoUpdate
                                                                                 : QItemSelectionModel::ClearAndSelect);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    ObjectItems items;
    items.key = KeyAt(index);
    if (!items.key.empty())
        items.run = [this, key = items.key](Command command) { Q_EMIT CommandAsked(command, key); };
    AddObjectItems(*menu, items);
    AddItems(*menu);
    Commands::GiveLetters(menu->actions());
    menu->popup(byMouse ? event->globalPos() : viewport()->mapToGlobal(visualRect(index).bottomLeft()));
}

void ObjectList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (model()->rowCount() == 0)
        PaintEmptyText(*this, palette().color(QPalette::Base), whyNone_);
}

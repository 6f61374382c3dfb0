// Copying, the context menu, and drag and drop of a tree.
#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

#include "display/node_objects.h"
#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "project/start.h"
#include "views/baum_view.h"
#include "views/commands.h"
#include "views/context_ways.h"
#include "widgets/qt_text.h"

namespace {

QString AsText(const BaumNode& node, int depth) {
    QString text = QString(depth, QLatin1Char('\t')) + ToQString(node.Text()) + QLatin1Char('\n');
    for (const BaumNode* child : node.ChildNodes())
        text += AsText(*child, depth + 1);
    return text;
}

// In the spelling of the source where the node is that of an object.
QString CodePathOf(const BaumNode& node) {
    const CodeObject* object = gProjekt ? ObjectOfNode(*gProjekt, node.Id()) : nullptr;
    return ToQString(object ? object->CodePathOrg() : node.Key());
}

bool HasCodePath(const BaumNode& node) {
    return node.Kind() == NodeKind::Object;
}

}  // namespace

QString BaumView::TextOf(const BaumNode& node) {
    return ToQString(node.Text());
}

QString BaumView::PathOf(const BaumNode& node) {
    return HasCodePath(node) ? CodePathOf(node) : QString();
}

QString BaumView::TreeOf(const BaumNode& node) {
    return AsText(node, 0);
}

void BaumView::CopyNode(const QModelIndex& index, QString (*what)(const BaumNode&)) const {
    const BaumNode* node = model_->NodeAt(index);
    if (const QString text = node ? what(*node) : QString(); !text.isEmpty())
        QApplication::clipboard()->setText(text);
}

// The name for other programs, the key for other trees.
void BaumView::Copy() {
    QMimeData* mime = model_->mimeData({currentIndex()});
    if (!mime)
        return;
    mime->setText(currentIndex().data().toString());
    QApplication::clipboard()->setMimeData(mime);
}

void BaumView::ShowMenu(const QModelIndex& index, const QPoint& globalPos) {
    const BaumNode* node = model_->NodeAt(index);
    setCurrentIndex(index);  // shows what the menu is about
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // By the key: when the menu has closed, the node may no longer exist.
    const auto copy = [this, id = node->Id()](QString (*what)(const BaumNode&)) {
        return [this, id, what] { CopyNode(model_->IndexOf(Tree().Find(id)), what); };
    };
    const std::string object = ObjectAt(index);
    ObjectItems items;
    items.key = object;
    if (!object.empty())
        items.run = [this, object](Command command) { Q_EMIT CommandAsked(command, object); };
    AddObjectItems(*menu, items);
    menu->addAction(TextNr(Text::CopyName), this, copy(TextOf));
    menu->addAction(TextNr(Text::CopyCodePath), this, copy(PathOf))->setEnabled(HasCodePath(*node));
    menu->addAction(TextNr(Text::CopyAsText), this, copy(TreeOf));
    if (deletes_ && !object.empty()) {
        menu->addSeparator();
        QAction* const action = menu->addAction(TextNr(Text::DeleteNamed, TextOf(*node)) + QChar(0x2026), this,
                                                [this, object] { Q_EMIT DeleteAsked(object); });
        action->setEnabled(CanDelete(object));
        action->setShortcut(QKeySequence::Delete);
        action->setShortcutContext(Qt::WidgetShortcut);  // the key itself belongs to the tree
        action->setShortcutVisibleInContextMenu(true);
    }
    Commands::GiveLetters(menu->actions());
    connect(menu, &QMenu::aboutToHide, this, &BaumView::ShowSelected);
    menu->popup(globalPos);
}

QPixmap BaumView::DragPicture(const QModelIndex& index) const {
    const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
    const QString text = fontMetrics().elidedText(index.data(Qt::DisplayRole).toString(), Qt::ElideRight,
                                                  fontMetrics().averageCharWidth() * 40);
    const QSize iconSize(style()->pixelMetric(QStyle::PM_SmallIconSize),
                         style()->pixelMetric(QStyle::PM_SmallIconSize));
    const int gap = iconSize.width() / 4;
    const QSize size(iconSize.width() + fontMetrics().horizontalAdvance(text) + 3 * gap,
                     std::max(iconSize.height(), fontMetrics().height()) + 2 * gap);
    QPixmap picture(size * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(palette().color(QPalette::ToolTipBase));
    QPainter painter(&picture);
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    icon.paint(&painter, gap, (size.height() - iconSize.height()) / 2, iconSize.width(), iconSize.height());
    painter.drawText(QRect(iconSize.width() + 2 * gap, 0, size.width(), size.height()), Qt::AlignVCenter, text);
    return picture;
}

void BaumView::startDrag(Qt::DropActions) {
    const QModelIndex index = currentIndex();
    const BaumNode* node = model_->NodeAt(index);
    if (!node)
        return;
    auto* drag = new QDrag(this);
    drag->setMimeData(model_->mimeData({index}));
    drag->setPixmap(DragPicture(index));
    drag->setHotSpot(QPoint(-8, -8));
    drag->exec(Qt::CopyAction);
    ShowSelected();  // dragging a node away is not choosing it
}

void BaumView::TakeKeysOnly(QDropEvent& event) const {
    if (acceptsKeys_ && event.mimeData()->hasFormat(QString::fromLatin1(kKeyMimeType)))
        event.acceptProposedAction();
    else
        event.ignore();
}

void BaumView::dragEnterEvent(QDragEnterEvent* event) {
    TakeKeysOnly(*event);
}

void BaumView::dragMoveEvent(QDragMoveEvent* event) {
    TakeKeysOnly(*event);
}

void BaumView::dropEvent(QDropEvent* event) {
    TakeKeysOnly(*event);
    if (event->isAccepted())
        TakeKeys(event->mimeData());
}

void BaumView::TakeKeys(const QMimeData* mime) {
    const QByteArray key = mime ? mime->data(QString::fromLatin1(kKeyMimeType)) : QByteArray();
    if (!key.isEmpty())
        Q_EMIT KeyDropped(ActiveCodePage().FromUtf8(key.toStdString()));
}

#include "views/reach_list.h"

#include <QMenu>
#include <QPainter>
#include <QResizeEvent>
#include <algorithm>

#include "views/two_line_delegate.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"
#include "widgets/window_style.h"

namespace {

constexpr int kMargin = 6;
using Kind = ReachRow::Kind;

Kind KindOf(const QModelIndex& index) {
    return static_cast<Kind>(index.data(ReachModel::KindRole).toInt());
}

// Objects have two lines; sentences are as high as they need to be.
class ReachDelegate final : public QStyledItemDelegate {
public:
    explicit ReachDelegate(QListView* list) : QStyledItemDelegate(list), list_(*list), items_(false) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        if (KindOf(index) == Kind::Item)
            return items_.sizeHint(option, index);
        const int width = std::max(1, list_.viewport()->width() - 2 * kMargin);
        const QRect text = QFontMetrics(FontOf(option, index))
                               .boundingRect(QRect(0, 0, width, INT16_MAX), Qt::TextWordWrap, index.data().toString());
        return {0, text.height() + 2 * kMargin};
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& item, const QModelIndex& index) const override {
        if (KindOf(index) == Kind::Item)
            return items_.paint(painter, item, index);
        QStyleOptionViewItem option(item);
        initStyleOption(&option, index);
        option.text.clear();
        option.icon = QIcon();
        list_.style()->drawControl(QStyle::CE_ItemViewItem, &option, painter, &list_);
        const bool selected = option.state & QStyle::State_Selected;
        const bool isStrong = !HasPaleSelection(&list_);
        const QPalette::ColorRole role = selected                      ? QPalette::HighlightedText
                                         : KindOf(index) == Kind::More ? QPalette::Link
                                                                       : QPalette::Text;
        painter->save();
        painter->setPen(option.palette.color(isStrong ? QPalette::Active : QPalette::Inactive, role));
        painter->setFont(FontOf(option, index));
        painter->drawText(option.rect.adjusted(kMargin, kMargin, -kMargin, -kMargin),
                          Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, index.data().toString());
        painter->restore();
    }

private:
    static QFont FontOf(const QStyleOptionViewItem& option, const QModelIndex& index) {
        QFont font = option.font;
        font.setBold(KindOf(index) == Kind::Heading);
        return font;
    }

    const QListView& list_;
    TwoLineDelegate items_;
};

}  // namespace

QVariant ReachModel::data(const QModelIndex& index, int role) const {
    const ReachRow* row = RowAt(index);
    if (!row)
        return {};
    switch (role) {
        case TwoLineDelegate::NameRole:
        case Qt::DisplayRole:
            return QString::fromStdString(row->text);
        case Qt::DecorationRole:
            return row->image.empty() ? QVariant() : IconFor(row->image);
        case TwoLineDelegate::AboutRole:
            return QString::fromStdString(row->about);
        case Qt::ToolTipRole:
            return row->kind == Kind::Item ? QString::fromStdString(row->text + "\n" + row->about) : QVariant();
        case Qt::AccessibleTextRole:
            return QString::fromStdString(row->about.empty() ? row->text : row->text + ", " + row->about);
        case KindRole:
            return static_cast<int>(row->kind);
        default:
            return {};
    }
}

// Sentences and headings can be reached by keys, so that screen readers read them.
Qt::ItemFlags ReachModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
}

ReachList::ReachList(QWidget* parent) : ReachList(new ReachModel, parent) {}

ReachList::ReachList(ReachModel* model, QWidget* parent) : ObjectList(model, parent), model_(model) {
    setItemDelegate(new ReachDelegate(this));
    setVerticalScrollMode(ScrollPerPixel);
}

void ReachList::Show(std::vector<ReachRow> rows) {
    model_->Show(std::move(rows));
    scrollToTop();
    viewport()->update();
}

void ReachList::SetCurrentPlace(int place) {
    const auto row = std::ranges::find(Rows(), place, &ReachRow::place);
    if (place >= 0 && row != Rows().end())
        setCurrentIndex(model_->index(static_cast<int>(row - Rows().begin())));
}

void ReachList::SetCurrentObject() {
    const auto row = std::ranges::find(Rows(), Kind::Item, &ReachRow::kind);
    setCurrentIndex(model_->index(row == Rows().end() ? 0 : static_cast<int>(row - Rows().begin())));
    scrollToTop();  // what is above says what the rows are
}

std::string ReachList::KeyAt(const QModelIndex& index) const {
    const ReachRow* const row = model_->RowAt(index);
    return row ? row->key : std::string();
}

std::vector<std::string> ReachList::KeysMeant() const {
    std::vector<std::string> keys;
    const QModelIndexList selected = selectionModel()->selectedRows();
    const ReachRow* const current = CurrentRow();
    const int section = current ? current->section : Rows().empty() ? 0 : Rows().front().section;
    const auto add = [&keys](const ReachRow& row) {
        if (row.kind == Kind::Item && std::ranges::find(keys, row.key) == keys.end())
            keys.push_back(row.key);
    };
    if (selected.size() > 1)
        for (const QModelIndex& index : selected)
            add(*model_->RowAt(index));
    else
        for (const ReachRow& row : Rows())
            if (row.section == section)
                add(row);
    return keys;
}

// A copy of the row: what is done then can exchange the rows.
void ReachList::Choose(const QModelIndex& index, bool stays) {
    if (const ReachRow* const row = model_->RowAt(index); row && (row->kind == Kind::Item || row->kind == Kind::More))
        Q_EMIT RowChosen(ReachRow(*row), stays);
}

QString ReachList::CopyOf(bool all) const {
    return all ? QString::fromStdString(AsText(Rows())) : QString::fromStdString(AsText({*CurrentRow()})).trimmed();
}

void ReachList::AddItems(QMenu& menu) {
    menu.addAction(TextNr(Text::Copy), this, [this] { Copy(false); });
    menu.addAction(TextNr(Text::CopyAsText), this, [this] { Copy(true); });
}

// Sentences wrap at the new width.
void ReachList::resizeEvent(QResizeEvent* event) {
    QListView::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        scheduleDelayedItemsLayout();
}

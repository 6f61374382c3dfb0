#include "views/references_list.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>

#include "views/commands.h"
#include "views/context_ways.h"
#include "views/two_line_delegate.h"
#include "widgets/code_style.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

QString Utf8(const std::string& text) {
    return QString::fromStdString(text);
}

// Bytes of UTF-8 as the characters they are shown as.
QVariantList ShownRange(const ReferenceRow& row) {
    const auto length = [&row](std::size_t from, std::size_t bytes) {
        return static_cast<int>(Utf8(row.text.substr(from, bytes)).size());
    };
    return {length(0, row.nameStart), length(row.nameStart, row.nameLength)};
}

QString About(const ReferenceRow& row) {
    QStringList parts{Utf8(row.where), QStringLiteral("%1 %2").arg(TextNr(Text::Line), QString::number(row.line)),
                      TextNr(row.kind)};
    if (!row.member.empty())
        parts.append(Utf8(row.member));
    return parts.join(QStringLiteral(" \u00B7 "));
}

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

void ReferencesModel::Show(std::vector<ReferenceRow> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

const ReferenceRow* ReferencesModel::RowAt(const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    return index.isValid() && row < rows_.size() ? &rows_[row] : nullptr;
}

QString ReferencesModel::AsText(const ReferenceRow& row) {
    return QStringList{Utf8(row.where), QString::number(row.line), TextNr(row.kind), Utf8(row.member), Utf8(row.text)}
               .join(QLatin1Char('\t')) +
           QLatin1Char('\n');
}

QString ReferencesModel::AsText() const {
    QString text;
    for (const ReferenceRow& row : rows_)
        text += AsText(row);
    return text;
}

int ReferencesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ReferencesModel::data(const QModelIndex& index, int role) const {
    const ReferenceRow* row = RowAt(index);
    if (!row)
        return {};
    switch (role) {
        case TwoLineDelegate::NameRole:
        case Qt::DisplayRole:
            return Utf8(row->text);
        case Qt::DecorationRole:
            return IconFor(row->image);
        case TwoLineDelegate::RangesRole:
            return ShownRange(*row);
        case TwoLineDelegate::AboutRole:
            return About(*row);
        case Qt::ToolTipRole:
            return QStringLiteral("<b>%1</b><br>%2<br>%3")
                .arg(About(*row).toHtmlEscaped(), Utf8(row->text).toHtmlEscaped(), TextNr(Text::ReferenceKeys));
        case Qt::AccessibleTextRole:
            return Utf8(row->text) + QStringLiteral(", ") + About(*row);
        default:
            return {};
    }
}

ReferencesList::ReferencesList(QWidget* parent) : QListView(parent), model_(new ReferencesModel(this)) {
    setObjectName(QStringLiteral("references"));
    setModel(model_);
    setItemDelegate(new TwoLineDelegate(false, this));
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    // Like the trees, which Tab leaves as well.
    setTabKeyNavigation(false);
    connect(this, &QListView::doubleClicked, this,
            [this](const QModelIndex& index) { Q_EMIT RowChosen(index.row(), false); });
}

void ReferencesList::Texte() {
    setAccessibleName(TextNr(Text::References));
    setAccessibleDescription(TextNr(Text::ReferenceKeys));
    viewport()->update();
}

void ReferencesList::Renew(int count, const QString& whyNone) {
    count_ = count;
    whyNone_ = whyNone;
    row_ = -1;
    stale_ = count > 0;
    model_->Show({});
    if (isVisible())
        Load();
    viewport()->update();
}

void ReferencesList::Load() {
    if (!std::exchange(stale_, false) || !source_)
        return;
    model_->Show(source_());
    SetCurrentRow(std::max(row_, 0));
}

void ReferencesList::SetCurrentRow(int row) {
    row_ = row;
    if (!stale_)
        setCurrentIndex(model_->index(row));
}

std::string ReferencesList::CurrentObject() const {
    const ReferenceRow* row = model_->RowAt(currentIndex());
    return row ? row->key : std::string();
}

void ReferencesList::CopyRow() const {
    if (const ReferenceRow* row = model_->RowAt(currentIndex()))
        QApplication::clipboard()->setText(ReferencesModel::AsText(*row));
}

void ReferencesList::keyPressEvent(QKeyEvent* event) {
    if (event == QKeySequence::Copy)
        CopyRow();
    else if (IsEnter(*event) && currentIndex().isValid())
        Q_EMIT RowChosen(CurrentRow(), false);
    else
        return QListView::keyPressEvent(event);
    event->accept();
}

void ReferencesList::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid() || event->button() != Qt::LeftButton)
        return;
    if (event->modifiers().testFlag(Qt::ControlModifier))
        Q_EMIT CommandAsked(Command::GoTo, model_->RowAt(index)->key);
    else
        Q_EMIT RowChosen(index.row(), true);
}

void ReferencesList::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    const QModelIndex index = byMouse ? indexAt(event->pos()) : currentIndex();
    const ReferenceRow* row = model_->RowAt(index);
    if (!row)
        return;
    setCurrentIndex(index);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    ObjectItems items;
    items.key = row->key;
    items.run = [this, key = row->key](Command command) { Q_EMIT CommandAsked(command, key); };
    AddObjectItems(*menu, items);
    menu->addAction(TextNr(Text::Copy), this, &ReferencesList::CopyRow);
    menu->addAction(TextNr(Text::CopyCodePath), this,
                    [where = Utf8(row->where)] { QApplication::clipboard()->setText(where); });
    menu->addAction(TextNr(Text::CopyAsText), this, [this] { QApplication::clipboard()->setText(model_->AsText()); });
    Commands::GiveLetters(menu->actions());
    menu->popup(byMouse ? event->globalPos() : viewport()->mapToGlobal(visualRect(index).bottomLeft()));
}

void ReferencesList::showEvent(QShowEvent* event) {
    QListView::showEvent(event);
    Load();
}

void ReferencesList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (count_ > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(Dimmed(palette(), palette().color(QPalette::Base)));
    const int margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, whyNone_);
}

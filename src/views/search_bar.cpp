#include "views/search_bar.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QToolButton>
#include <QVBoxLayout>

#include "display/node_objects.h"
#include "model/clsModul.h"
#include "model/clsProjekt.h"
#include "project/start.h"
#include "shell/words.h"
#include "views/two_line_delegate.h"
#include "widgets/code_style.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

constexpr std::size_t kMostHits = 200;
constexpr int kMargin = 6;

// Ranges of bytes as ranges of the characters they are shown as.
QVariantList ShownRanges(std::string_view name, const std::vector<MatchedRange>& ranges) {
    QVariantList shown;
    for (const MatchedRange& range : ranges) {
        shown.append(static_cast<int>(ToQString(name.substr(0, range.from)).size()));
        shown.append(static_cast<int>(ToQString(name.substr(range.from, range.length)).size()));
    }
    return shown;
}

// Kind, and where the object is: the path of what holds it, the file of a module, what a library says of itself.
QString About(const CodeObject& object) {
    QString about = ToQString(ObjectKind(object));
    QString place = ToQString(ObjectPlace(object));
    if (object.Class() == ObjectClass::Modul)
        place = ToQString(modMain::DirOrFileName(static_cast<const clsModul&>(object).FullPath, 0));
    else if (object.Class() == ObjectClass::TypeLib)
        place = ToQString(static_cast<const clsTypeLib&>(object).Description);
    return place.isEmpty() ? about : about + QStringLiteral(" \u00B7 ") + place;
}

HitRow RowOf(const Hit& hit) {
    const CodeObject& object = *hit.object;
    return {.name = ToQString(object.myNameOrg()),
            .image = object.GetImageKey(),
            .ranges = ShownRanges(object.myNameOrg(), hit.ranges),
            .about = About(object),
            .tip = ToQString(object.CodePathOrg()) + QStringLiteral(" \u00B7 ") + ToQString(ObjectKind(object)),
            .nodeKey = NodeKeyOf(object)};
}

}  // namespace

QVariant HitsModel::data(const QModelIndex& index, int role) const {
    const HitRow* hit = RowAt(index);
    if (!hit)
        return {};
    switch (role) {
        case TwoLineDelegate::NameRole:
        case Qt::DisplayRole:
            return hit->name;
        case Qt::DecorationRole:
            return IconFor(hit->image);
        case TwoLineDelegate::RangesRole:
            return hit->ranges;
        case TwoLineDelegate::AboutRole:
            return hit->about;
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole:
            return hit->tip;
        default:
            return {};
    }
}

SearchBar::SearchBar(QWidget* parent)
    : QWidget(parent),
      field_(new QLineEdit),
      list_(new QFrame(this)),
      view_(new QListView),
      foot_(new QLabel),
      model_(new HitsModel(this)) {
    setObjectName(QStringLiteral("searchBar"));
    field_->setObjectName(QStringLiteral("searchField"));
    field_->setClearButtonEnabled(true);
    field_->addAction(IconFor("Search"), QLineEdit::LeadingPosition);
    field_->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field_);

    list_->setObjectName(QStringLiteral("searchList"));
    list_->setFrameShape(QFrame::StyledPanel);
    list_->setFrameShadow(QFrame::Raised);
    list_->setAutoFillBackground(true);
    list_->setBackgroundRole(QPalette::Base);
    list_->hide();
    view_->setObjectName(QStringLiteral("hits"));
    view_->setModel(model_);
    view_->setItemDelegate(new TwoLineDelegate(true, view_));
    view_->setUniformItemSizes(true);
    view_->setFrameShape(QFrame::NoFrame);
    view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->setFocusPolicy(Qt::NoFocus);
    view_->setMouseTracking(true);
    foot_->setObjectName(QStringLiteral("searchFoot"));
    foot_->setMargin(kMargin);
    foot_->setWordWrap(true);
    foot_->setTextFormat(Qt::PlainText);
    foot_->setForegroundRole(QPalette::PlaceholderText);
    auto* column = new QVBoxLayout(list_);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    column->addWidget(view_, 1);
    column->addWidget(foot_);

    connect(field_, &QLineEdit::textChanged, this, &SearchBar::Search);
    connect(view_, &QListView::clicked, this, &SearchBar::Choose);
    view_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view_, &QListView::customContextMenuRequested, this, &SearchBar::ShowMenu);
    Texte();
}

void SearchBar::Texte() {
    field_->setPlaceholderText(TextNr(Text::FindField));
    field_->setAccessibleName(TextNr(Text::FindField));
    if (auto* const clear = field_->findChild<QAction*>(QStringLiteral("_q_qlineeditclearaction")))
        clear->setText(TextNr(Text::ClearSearch));  // Qt's own action has no text, and its button no name
    field_->setToolTip(TextNr(Text::FindTip));
    view_->setAccessibleName(TextNr(Text::Hits));
    if (list_->isVisible())
        Search();
}

void SearchBar::Focus() {
    if (!field_->hasFocus())
        focusBefore_ = QApplication::focusWidget();
    // Esc returns the focus to where the search began.
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
}

void SearchBar::ProjectChanges() {
    Close();
    model_->Show({});
    search_.Clear();
}

void SearchBar::Clear() {
    ProjectChanges();
    field_->clear();
}

void SearchBar::Search() {
    const QString typed = field_->text().trimmed();
    if (typed.isEmpty() || !gProjekt) {
        Close();
        return;
    }
    if (!search_.Built())
        search_.Build(*gProjekt);
    std::vector<HitRow> rows;
    for (const Hit& hit : search_.Find(FromQString(typed), kMostHits))
        rows.push_back(RowOf(hit));
    model_->Show(std::move(rows));
    const int shown = model_->rowCount();
    view_->setVisible(shown > 0);
    foot_->setVisible(static_cast<std::size_t>(shown) < search_.Found() || shown == 0);
    foot_->setText(
        shown == 0 ? TextNr(Text::NothingFound, typed)
                   : TextNr(Text::HitsShown, NumberText(shown), NumberText(static_cast<qlonglong>(search_.Found()))));
    if (shown > 0)
        Select(0);
    else
        field_->setAccessibleDescription(foot_->text());
    Open();
}

void SearchBar::Open() {
    if (list_->parentWidget() != window()) {
        list_->setParent(window());
        window()->installEventFilter(this);
    }
    PlaceList();
    list_->show();
    list_->raise();
}

void SearchBar::Close() {
    list_->hide();
}

void SearchBar::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    Close();
}

// Below the field, as wide as it or wider, as high as the hits need and the window allows.
void SearchBar::PlaceList() {
    const QPoint corner = mapTo(window(), QPoint(0, height() + 2));
    const int roomRight = window()->width() - corner.x() - kMargin;
    const int width = std::min(std::max(this->width(), 50 * fontMetrics().averageCharWidth()), roomRight);
    const int roomBelow = window()->height() - corner.y() - kMargin;
    int needed = 2 + 2 * list_->frameWidth();
    if (!view_->isHidden())
        needed += model_->rowCount() * view_->sizeHintForRow(0);
    if (!foot_->isHidden())
        needed += foot_->heightForWidth(width - 2);
    list_->setGeometry(
        QRect(corner, QSize(width, std::max(0, std::min({needed, roomBelow, window()->height() * 2 / 3})))));
}

void SearchBar::Choose(const QModelIndex& index) {
    const HitRow* hit = model_->RowAt(index);
    if (!hit)
        return;
    const std::string nodeKey = hit->nodeKey;
    Close();
    field_->setCursorPosition(0);  // in a narrow field the beginning is more useful than the end
    GiveFocusBack();
    Q_EMIT ObjectChosen(nodeKey);
}

void SearchBar::MoveBy(int rows) {
    const int last = model_->rowCount() - 1;
    if (last < 0)
        return;
    Select(std::clamp(view_->currentIndex().row() + rows, 0, last));
}

// The focus stays in the field, so screen readers get the current hit as the field's description.
void SearchBar::Select(int row) {
    const QModelIndex index = model_->index(row);
    view_->setCurrentIndex(index);
    field_->setAccessibleDescription(index.data(Qt::AccessibleTextRole).toString());
}

void SearchBar::GiveFocusBack() {
    QWidget* before = focusBefore_.data();
    focusBefore_.clear();
    if (before && before->isVisible())
        before->setFocus(Qt::OtherFocusReason);
}

bool SearchBar::HandleKey(int key) {
    const bool isOpen = list_->isVisible();
    const int page = std::max(1, view_->height() / std::max(1, view_->sizeHintForRow(0)) - 1);
    switch (key) {
        case Qt::Key_Down:
            if (isOpen)
                MoveBy(1);
            else
                Search();
            return true;
        case Qt::Key_Up:
            MoveBy(-1);
            return true;
        case Qt::Key_PageDown:
            MoveBy(page);
            return true;
        case Qt::Key_PageUp:
            MoveBy(-page);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (isOpen)
                Choose(view_->currentIndex());
            else
                Search();
            return true;
        case Qt::Key_Escape: {
            const bool leavesDialog = field_->text().isEmpty() && qobject_cast<QDialog*>(window());
            Close();
            field_->clear();
            if (!leavesDialog)
                GiveFocusBack();
            return !leavesDialog;
        }
        default:
            return false;
    }
}

bool SearchBar::eventFilter(QObject* watched, QEvent* event) {
    const bool isField = watched == field_;
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            // While the field has the focus, Esc closes the list, even if Esc is a shortcut of the window.
            if (isField && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
                event->accept();
            break;
        case QEvent::KeyPress:
            if (isField && HandleKey(static_cast<QKeyEvent*>(event)->key()))
                return true;
            break;
        case QEvent::FocusOut:
            // A context menu of the field takes the focus only for a moment.
            if (isField && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
                Close();
            break;
        case QEvent::Resize:
        case QEvent::Move:
            if (list_->isVisible())
                PlaceList();
            break;
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

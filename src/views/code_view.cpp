#include "views/code_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <array>

#include "platform/code_page.h"
#include "views/commands.h"
#include "widgets/code_style.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kTabColumns = 4;
constexpr int kGutterGap = 6;  // pixels beside the line numbers
// Where strings and comments begin and end. A mark there keeps words of two of them, written from right to left, from
// changing places in the line.
std::vector<Pos> BoundsOfTexts(const std::vector<CodeSpan>& spans) {
    std::vector<Pos> bounds;
    for (const CodeSpan& span : spans)
        if (span.what == Colour::String || span.what == Colour::Comment)
            bounds.insert(bounds.end(), {span.start, span.start + span.length});
    return bounds;
}

constexpr std::size_t kMeanings = static_cast<std::size_t>(Colour::FunctionResult) + 1;

}  // namespace

// The line numbers. They belong to the view; a click selects nothing.
class CodeView::Gutter final : public QWidget {
public:
    explicit Gutter(CodeView& view) : QWidget(&view), view_(view) {}

protected:
    void paintEvent(QPaintEvent* event) override { view_.PaintGutter(event); }

private:
    CodeView& view_;
};

CodeView::CodeView(const Settings& settings, QWidget* parent)
    : QPlainTextEdit(parent), settings_(settings), gutter_(new Gutter(*this)) {
    setObjectName(QStringLiteral("rtbCode"));
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // Nothing is edited, and an undo stack would keep a second copy of each text.
    setUndoRedoEnabled(false);
    setLineWrapMode(NoWrap);
    // Read only, so Tab has nothing to insert: it leaves the widget as in a form.
    setTabChangesFocus(true);
    setCenterOnScroll(false);
    // A line that begins with a right-to-left word is still a line of code.
    QTextOption leftToRight = document()->defaultTextOption();
    leftToRight.setTextDirection(Qt::LeftToRight);
    document()->setDefaultTextOption(leftToRight);
    connect(this, &QPlainTextEdit::updateRequest, gutter_, [this](const QRect& rect, int dy) {
        if (dy != 0)
            gutter_->scroll(0, dy);
        else
            gutter_->update(0, rect.y(), gutter_->width(), rect.height());
    });
    ApplySettings();
    Texte();
}

void CodeView::Texte() {
    emptyText_ = TextNr(Text::EmptyCode);
    setAccessibleName(TextNr(Text::Code));
    setAccessibleDescription(TextNr(Text::CodeKeys));
    gutter_->setAccessibleName(TextNr(Text::Lines));
    viewport()->update();
}

void CodeView::Show(const CodeText& code) {
    const CodePage& page = code.page ? *code.page : ActiveCodePage();
    text_ = DecodedText(code.text, page);
    if (text_.HasRightToLeft())
        text_ = DecodedText(code.text, page, BoundsOfTexts(code.spans));
    spans_ = code.spans;
    firstLine_ = code.firstLine;
    onGrey_ = code.onGrey;
    const bool hadPlaces = !places_.empty();
    places_.clear();
    currentPlace_ = 0;
    setExtraSelections({});
    ApplyGround();
    setUpdatesEnabled(false);
    setPlainText(text_.Text());
    ApplySpans();
    LayOutGutter();
    setUpdatesEnabled(true);
    if (hadPlaces)
        Q_EMIT PlaceChanged(0, 0);
}

// One sweep over lines and spans together. The formats belong to the layout of a line, not to the document, which would
// keep a fragment for each and is slow to build.
void CodeView::ApplySpans() {
    const QColor ground = Ground();
    std::array<QTextCharFormat, kMeanings> styles;
    for (std::size_t what = 0; what < kMeanings; ++what)
        styles[what] = StyleOf(static_cast<Colour>(what), ground, settings_);
    auto span = spans_.begin();
    QList<QTextLayout::FormatRange> formats;
    for (QTextBlock line = document()->firstBlock(); line.isValid(); line = line.next()) {
        const int from = line.position();
        const int to = from + line.length() - 1;
        formats.clear();
        for (; span != spans_.end(); ++span) {
            const int spanFrom = std::max(text_.ToUtf16(span->start), from);
            const int spanTo = text_.ToUtf16(span->start + span->length);
            if (spanFrom >= to && spanTo > to)
                break;
            if (std::min(spanTo, to) > spanFrom)
                formats.append(
                    {spanFrom - from, std::min(spanTo, to) - spanFrom, styles[static_cast<std::size_t>(span->what)]});
            if (spanTo > to)
                break;  // goes on in the next line
        }
        if (!formats.isEmpty() || !line.layout()->formats().isEmpty())
            line.layout()->setFormats(formats);
    }
    document()->markContentsDirty(0, document()->characterCount());
    viewport()->update();
}

QColor CodeView::Ground() const {
    return CodeGround(palette(), onGrey_);
}

void CodeView::ApplyGround() {
    QPalette own = palette();
    own.setColor(QPalette::Base, Ground());
    viewport()->setPalette(own);
}

void CodeView::ApplyFont() {
    FontSetting setting = settings_.CodeFont;
    setting.size = std::max(std::abs(setting.size) + static_cast<float>(zoom_), 4.0F);
    setFont(FontFromSetting(setting, QFontDatabase::systemFont(QFontDatabase::FixedFont)));
    setTabStopDistance(kTabColumns * QFontMetricsF(font()).horizontalAdvance(QLatin1Char(' ')));
    LayOutGutter();
}

void CodeView::ApplySettings() {
    ApplyFont();
    ApplyGround();
    ApplySpans();
    ApplyPlaces();
}

void CodeView::SetZoom(int zoom) {
    const int smallest = 4 - static_cast<int>(std::abs(settings_.CodeFont.size));
    zoom_ = std::clamp(zoom, std::min(smallest, 0), 60);
    ApplyFont();
}

void CodeView::Select(CodeRange range) {
    const int from = text_.ToUtf16(range.start);
    const int to = text_.ToUtf16(range.start + range.length);
    ScrollTo(from, to);
}

// Centres a place that was out of sight, so that it is read with the lines around it.
void CodeView::ScrollTo(int from, int to) {
    QTextCursor cursor(document());
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    const QRect there = cursorRect(cursor);
    const bool isInSight = viewport()->rect().adjusted(0, 0, 0, -fontMetrics().height()).contains(there);
    setTextCursor(cursor);
    if (!isInSight)
        centerCursor();
}

void CodeView::MarkPlaces(std::vector<CodeSpan> places) {
    const bool hadPlaces = !places_.empty();
    places_ = std::move(places);
    currentPlace_ = 0;
    if (!places_.empty())
        StepToPlace(+1);
    else
        ApplyPlaces();
    if (places_.empty() && hadPlaces)
        Q_EMIT PlaceChanged(0, 0);
}

void CodeView::StepToPlace(int step) {
    const int count = PlaceCount();
    if (count == 0)
        return;
    currentPlace_ = (currentPlace_ + step - 1 + count) % count + 1;
    const CodeSpan& place = places_[static_cast<std::size_t>(currentPlace_) - 1];
    // Only the cursor goes there: a selection would cover the mark.
    const int from = text_.ToUtf16(place.start);
    ScrollTo(from, from);
    ApplyPlaces();
    Q_EMIT PlaceChanged(currentPlace_, count);
}

void CodeView::ApplyPlaces() {
    QList<QTextEdit::ExtraSelection> marks;
    marks.reserve(PlaceCount());
    int nr = 0;
    for (const CodeSpan& place : places_) {
        QTextCursor cursor(document());
        cursor.setPosition(text_.ToUtf16(place.start));
        cursor.setPosition(text_.ToUtf16(place.start + place.length), QTextCursor::KeepAnchor);
        marks.append({cursor, PlaceStyle(place.what, palette(), Ground(), ++nr == currentPlace_, settings_)});
    }
    setExtraSelections(marks);
}

Pos CodeView::SelStart() const {
    return text_.ToByte(textCursor().selectionStart());
}

Pos CodeView::SelLength() const {
    return text_.ToByte(textCursor().selectionEnd()) - SelStart();
}

Pos CodeView::ByteAt(QPoint point) const {
    QTextCursor cursor = cursorForPosition(point);
    QRect place = cursorRect(cursor);
    // cursorForPosition gives the nearest gap between characters, which can be the one after the character pointed at.
    if (point.x() < place.left() && !cursor.atBlockStart()) {
        cursor.movePosition(QTextCursor::PreviousCharacter);
        place = cursorRect(cursor);
    }
    const bool isBesideText = point.x() < place.left() - kGutterGap || cursor.atBlockEnd() ||
                              point.y() > place.bottom() || point.y() < place.top();
    return isBesideText ? -1 : text_.ToByte(cursor.position());
}

void CodeView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::RightButton) {
        QPlainTextEdit::mousePressEvent(event);
        return;
    }
    // A right click refers to the text under the pointer, unless that is part of the selection, which the user wants to
    // copy.
    event->accept();
    const QPoint point = event->position().toPoint();
    const Pos byte = ByteAt(point);
    const bool isInSelection = SelLength() > 0 && byte >= SelStart() && byte < SelStart() + SelLength();
    if (!isInSelection) {
        QTextCursor cursor = byte >= 0 ? textCursor() : cursorForPosition(point);
        if (byte >= 0)
            cursor.setPosition(text_.ToUtf16(byte));
        setTextCursor(cursor);
    }
    setFocus(Qt::MouseFocusReason);
    Q_EMIT PositionClicked(SelStart(), SelLength());
}

void CodeView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard)
        return;  // the right button goes to the object
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(TextNr(Text::GoToObject), this, [this] { Q_EMIT PositionClicked(SelStart(), SelLength()); });
    menu->addAction(TextNr(Text::Copy), this, &CodeView::copy)->setEnabled(textCursor().hasSelection());
    menu->addAction(TextNr(Text::SelectAll), this, &CodeView::selectAll);
    Commands::GiveLetters(menu->actions());
    menu->popup(event->globalPos());
}

QMimeData* CodeView::createMimeDataFromSelection() const {
    const QTextCursor cursor = textCursor();
    auto* mime = new QMimeData;
    mime->setText(text_.WithoutMarks(cursor.selectionStart(), cursor.selectionEnd()));
    return mime;
}

void CodeView::keyPressEvent(QKeyEvent* event) {
    const bool isControl = event->modifiers().testFlag(Qt::ControlModifier);
    const auto is = [event](QKeySequence::StandardKey key) { return event->matches(key); };
    if (is(QKeySequence::FindNext) || is(QKeySequence::FindPrevious) || event->key() == Qt::Key_F3) {
        StepToPlace(event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : +1);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT PositionClicked(SelStart(), SelLength());
    } else if (is(QKeySequence::ZoomIn) || (isControl && event->key() == Qt::Key_Equal)) {
        ZoomIn();
    } else if (is(QKeySequence::ZoomOut)) {
        ZoomOut();
    } else if (isControl && event->key() == Qt::Key_0) {
        ZoomReset();
    } else {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    event->accept();
}

void CodeView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    event->accept();
    if (event->angleDelta().y() != 0)
        SetZoom(zoom_ + (event->angleDelta().y() > 0 ? 1 : -1));
}

bool CodeView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QPlainTextEdit::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const Pos byte = toolTipSource_ ? ByteAt(help->pos()) : -1;
    const QString tip = byte >= 0 ? toolTipSource_(byte) : QString();
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), tip, viewport());
    return true;
}

void CodeView::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    // The background is set on the viewport only, so this event comes only from changes of the window's palette.
    if (event->type() == QEvent::PaletteChange && gutter_) {
        ApplyGround();
        ApplySpans();
        ApplyPlaces();
        gutter_->update();
    }
}

void CodeView::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    LayOutGutter();
}

void CodeView::paintEvent(QPaintEvent* event) {
    QPlainTextEdit::paintEvent(event);
    if (text_.ByteCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(Dimmed(palette(), Ground()));
    painter.setFont(QApplication::font());
    painter.drawText(viewport()->rect().adjusted(20, 20, -20, -20), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

void CodeView::LayOutGutter() {
    int width = 0;
    if (firstLine_ > 0) {
        const QString last = QString::number(firstLine_ + blockCount());
        width = fontMetrics().horizontalAdvance(QLatin1Char('9')) * static_cast<int>(last.size()) + 2 * kGutterGap;
    }
    gutter_->setVisible(width > 0);
    setViewportMargins(width, 0, 0, 0);
    const QRect inside = contentsRect();
    gutter_->setGeometry(inside.left(), inside.top(), width, viewport()->height());
    gutter_->update();
}

void CodeView::PaintGutter(QPaintEvent* event) {
    QPainter painter(gutter_);
    const QColor ground = Ground();
    painter.fillRect(event->rect(), ground);
    painter.setPen(Dimmed(palette(), ground));
    painter.setFont(font());
    QTextBlock line = firstVisibleBlock();
    for (int nr = firstLine_ + line.blockNumber(); line.isValid(); line = line.next(), ++nr) {
        const QRectF place = blockBoundingGeometry(line).translated(contentOffset());
        if (place.top() > event->rect().bottom())
            break;
        if (place.bottom() >= event->rect().top())
            painter.drawText(QRectF(0, place.top(), gutter_->width() - kGutterGap, place.height()),
                             Qt::AlignRight | Qt::AlignTop, QString::number(nr));
    }
}

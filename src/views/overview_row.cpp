#include "views/overview_row.h"

#include <QPainter>
#include <algorithm>

#include "widgets/code_style.h"

namespace {

constexpr int kMargin = 6;
constexpr int kGap = 12;
constexpr int kIcon = 16;
constexpr int kBar = 3;  // height in pixels
constexpr int kSmallestLabel = 90;

// Rounded up: a text in a room of just its width counts as too long.
int WidthOf(const QFontMetrics& font, const QString& text) {
    return text.isEmpty() ? 0 : font.horizontalAdvance(text) + 2;
}

}  // namespace

OverviewRow::OverviewRow(QWidget* parent) : QPushButton(parent) {
    setAttribute(Qt::WA_Hover);
    setAutoDefault(true);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void OverviewRow::Show(const Content& content, bool leads) {
    content_ = content;
    setEnabled(leads);
    setFocusPolicy(leads ? Qt::StrongFocus : Qt::NoFocus);
    setCursor(leads ? Qt::PointingHandCursor : Qt::ArrowCursor);
    QString name = content.label + QStringLiteral(": ") + content.value;
    if (!content.note.isEmpty())
        name += QStringLiteral(", ") + content.note;
    setAccessibleName(name);
    update();
}

void OverviewRow::SetColumns(int values, int notes) {
    values_ = values;
    notes_ = notes;
    update();
}

int OverviewRow::ValueWidth() const {
    return content_.wide ? 0 : WidthOf(fontMetrics(), content_.value);
}

int OverviewRow::NoteWidth() const {
    return WidthOf(fontMetrics(), content_.note);
}

QSize OverviewRow::sizeHint() const {
    const int bar = content_.bar >= 0 ? kBar + 2 : 0;
    return {kSmallestLabel + values_ + notes_ + 2 * kMargin + 2 * kGap, fontMetrics().height() + bar + kMargin};
}

void OverviewRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor base = palette().color(QPalette::Active, QPalette::Base);
    const QColor text = palette().color(QPalette::Active, QPalette::Text);
    const QColor accent = palette().color(QPalette::Active, QPalette::Highlight);
    const bool isPointedAt = isEnabled() && (underMouse() || isDown());
    const QColor ground = isPointedAt ? Mixed(base, accent, isDown() ? 0.28 : 0.14) : base;
    if (isPointedAt || hasFocus()) {
        painter.setPen(hasFocus() ? QPen(accent) : QPen(Qt::NoPen));
        painter.setBrush(ground);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    }
    QRect room = rect().adjusted(kMargin, 0, -kMargin, 0);
    if (content_.bar >= 0) {
        const QRectF track(room.left(), room.bottom() - kBar - 1, room.width(), kBar);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Mixed(ground, text, 0.1));
        painter.drawRoundedRect(track, kBar / 2.0, kBar / 2.0);
        painter.setBrush(Readable(accent, ground, 3));
        painter.drawRoundedRect(QRectF(track.topLeft(), QSizeF(track.width() * content_.bar, kBar)), kBar / 2.0,
                                kBar / 2.0);
        room.adjust(0, 0, 0, -kBar - 2);
    }
    const auto draw = [&painter](const QRect& place, Qt::Alignment side, const QString& what) {
        painter.drawText(place, static_cast<int>(side | Qt::AlignVCenter | Qt::TextSingleLine),
                         painter.fontMetrics().elidedText(what, Qt::ElideMiddle, place.width()));
    };
    if (content_.inner)
        room.setLeft(room.left() + 2 * kMargin);
    if (!content_.icon.isNull()) {
        content_.icon.paint(&painter, QRect(room.left(), room.center().y() - kIcon / 2, kIcon, kIcon));
        room.setLeft(room.left() + kIcon + kMargin);
    }
    const int note = notes_ > 0 && !content_.wide ? notes_ + kGap : 0;
    const int width = WidthOf(painter.fontMetrics(), content_.value);
    const int values = content_.wide ? std::min(width, room.width() * 2 / 3) : values_;
    const QRect valueRoom(room.right() + 1 - note - values, room.top(), values, room.height());
    painter.setPen(text);
    draw(QRect(room.left(), room.top(), valueRoom.left() - kGap - room.left(), room.height()), Qt::AlignLeft,
         content_.label);
    draw(valueRoom, Qt::AlignRight, content_.value);
    if (isEnabled()) {
        // Leads somewhere: the number is underlined as a link is.
        const int y = valueRoom.center().y() + painter.fontMetrics().ascent() / 2 + 1;
        painter.setPen(Mixed(ground, text, 0.45));
        painter.drawLine(QPointF(valueRoom.right() + 1 - std::min(width, values), y + 0.5),
                         QPointF(valueRoom.right() + 1, y + 0.5));
    }
    painter.setPen(Readable(Mixed(ground, text, 0.6), ground));
    draw(QRect(valueRoom.right() + 1 + kGap, room.top(), notes_, room.height()), Qt::AlignLeft, content_.note);
}

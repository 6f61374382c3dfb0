#include "views/two_line_delegate.h"

#include <QPainter>
#include <QTextLayout>

#include "widgets/code_style.h"
#include "widgets/window_style.h"

namespace {

constexpr int kMargin = 6;

QFont Small(QFont font) {
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * 0.9);
    return font;
}

QList<QTextLayout::FormatRange> Bold(const QVariantList& ranges) {
    QList<QTextLayout::FormatRange> formats;
    for (qsizetype i = 0; i + 1 < ranges.size(); i += 2) {
        QTextLayout::FormatRange range;
        range.start = ranges[i].toInt();
        range.length = ranges[i + 1].toInt();
        range.format.setFontWeight(QFont::Bold);
        formats.append(range);
    }
    return formats;
}

// Without its beginning, so that the first bold letters come soon.
QString FromBold(const QString& name, QVariantList& ranges) {
    constexpr int kBefore = 8;
    const int cut = ranges.isEmpty() ? 0 : ranges.front().toInt() - kBefore;
    if (cut <= 1)
        return name;
    for (qsizetype i = 0; i + 1 < ranges.size(); i += 2)
        ranges[i] = ranges[i].toInt() - cut + 1;
    return QChar(0x2026) + name.mid(cut);
}

// What does not fit is cut off at the end; but the bold letters are to be seen.
void DrawName(QPainter& painter, const QStyleOptionViewItem& option, const QRect& place, const QModelIndex& index) {
    QString name = index.data(TwoLineDelegate::NameRole).toString();
    QVariantList ranges = index.data(TwoLineDelegate::RangesRole).toList();
    QTextOption leftToRight;
    leftToRight.setTextDirection(Qt::LeftToRight);
    const auto draw = [&](const QString& text, bool always) {
        QTextLayout layout(text, option.font);
        layout.setTextOption(leftToRight);
        layout.setFormats(Bold(ranges));
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        if (!always && line.isValid() && line.naturalTextWidth() > place.width())
            return line.naturalTextWidth();
        layout.draw(&painter, place.topLeft());
        return 0.0;
    };
    if (const qreal width = draw(name, false); width > 0) {
        // Bold letters are wider than the metrics of the font say.
        const int room = place.width() - static_cast<int>(width - option.fontMetrics.horizontalAdvance(name));
        const auto elided = [&] { return option.fontMetrics.elidedText(name, Qt::ElideRight, room); };
        const qsizetype boldEnd = ranges.size() < 2 ? 0 : ranges[0].toInt() + ranges[1].toInt();
        if (boldEnd >= elided().size())
            name = FromBold(name, ranges);
        painter.setClipRect(place);
        draw(elided(), true);
        painter.setClipping(false);
    }
}

}  // namespace

QSize TwoLineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {0, option.fontMetrics.lineSpacing() + QFontMetrics(Small(option.font)).lineSpacing() + 2 * kMargin};
}

void TwoLineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& item, const QModelIndex& index) const {
    QStyleOptionViewItem option(item);
    initStyleOption(&option, index);
    option.text.clear();
    option.icon = QIcon();
    if (isActive_)
        option.state |= QStyle::State_Active;
    const QStyle& style = *option.widget->style();
    style.drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    painter->save();
    const bool selected = option.state & QStyle::State_Selected;
    // As the style draws the ground: strong where the focus is.
    const bool isStrong = isActive_ || !HasPaleSelection(option.widget);
    const QColor text = option.palette.color(isStrong ? QPalette::Active : QPalette::Inactive,
                                             selected ? QPalette::HighlightedText : QPalette::Text);
    const int iconSize = style.pixelMetric(QStyle::PM_SmallIconSize, nullptr, option.widget);
    QRect rest = option.rect.adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const QRect iconPlace =
        QStyle::alignedRect(option.direction, Qt::AlignLeft | Qt::AlignTop, QSize(iconSize, iconSize), rest);
    qvariant_cast<QIcon>(index.data(Qt::DecorationRole))
        .paint(painter, iconPlace, Qt::AlignCenter, selected ? QIcon::Selected : QIcon::Normal);
    rest.adjust(iconSize + kMargin, 0, 0, 0);

    painter->setPen(text);
    DrawName(*painter, option, rest, index);
    painter->setPen(selected ? text : Dimmed(option.palette, option.palette.color(QPalette::Base)));
    painter->setFont(Small(option.font));
    const QRect below = rest.adjusted(0, option.fontMetrics.lineSpacing(), 0, 0);
    painter->drawText(
        below, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
        painter->fontMetrics().elidedText(index.data(AboutRole).toString(), Qt::ElideMiddle, below.width()));
    painter->restore();
}

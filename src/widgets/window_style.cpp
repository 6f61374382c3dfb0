#include "widgets/window_style.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QStyleOptionViewItem>
#include <algorithm>

#include "widgets/code_style.h"
#include "widgets/icons.h"

namespace {

constexpr double kPaleSelection = 0.3;  // share of the highlight over the ground
constexpr QColor kRemark(255, 200, 0);  // in the ground of remarks
constexpr double kRemarkShare = 0.2;

// The option of a row or cell without its active state where the selection is pale.
QStyleOptionViewItem PaleIfPale(const QStyleOption* option, const QWidget* widget) {
    QStyleOptionViewItem item(*qstyleoption_cast<const QStyleOptionViewItem*>(option));
    if (HasPaleSelection(widget))
        item.state &= ~QStyle::State_Active;
    return item;
}

// On a dark window the ground and the frame of a pressed button in Fusion have nearly the same colour.
void FramePressed(const QStyleOption& option, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(PressedFrame(option.palette));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.restore();
}

// Fusion outlines a box in a darker shade of the window, which is no outline on a dark ground.
void DrawOutline(const QStyleOption& option, QPainter& painter, bool isRound) {
    painter.save();
    painter.setPen(IndicatorOutline(option.palette));
    painter.setBrush(Qt::NoBrush);
    painter.setRenderHint(QPainter::Antialiasing, isRound);
    if (isRound)
        painter.drawEllipse(QRectF(option.rect).adjusted(1, 1, -1, -1));
    else
        painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

}  // namespace

QColor PressedFrame(const QPalette& palette) {
    const QColor ink =
        palette.color(palette.currentColorGroup() == QPalette::Disabled ? QPalette::Mid : QPalette::Highlight);
    return Readable(ink, palette.color(QPalette::Window), kVisibleContrast);
}

QColor IndicatorOutline(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    const QColor ink = Mixed(base, palette.color(QPalette::Text), 0.5);
    return palette.currentColorGroup() == QPalette::Disabled ? ink : Readable(ink, base, kVisibleContrast);
}

int HeadHeight(const QWidget& widget) {
    return std::max(widget.fontMetrics().height() + 11, 28);
}

WindowStyle::WindowStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

bool HasPaleSelection(const QWidget* widget) {
    const auto* view = qobject_cast<const QAbstractItemView*>(widget);
    if (!view && widget)
        view = qobject_cast<const QAbstractItemView*>(widget->parentWidget());
    // A list that never takes the focus is operated from elsewhere.
    return view && (!view->isActiveWindow() || (view->focusPolicy() != Qt::NoFocus && !view->hasFocus()));
}

void WindowStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        const QColor base = palette.color(group, QPalette::Base);
        const QColor window = palette.color(group, QPalette::Window);
        const auto readable = [&](const QColor& ink) { return Readable(Readable(ink, base), window); };
        palette.setColor(group, QPalette::PlaceholderText,
                         readable(Mixed(base, palette.color(group, QPalette::Text), 0.6)));
        for (const QPalette::ColorRole link : {QPalette::Link, QPalette::LinkVisited})
            palette.setColor(group, link, readable(palette.color(group, link)));
        palette.setColor(
            group, QPalette::Highlight,
            Readable(palette.color(group, QPalette::Highlight), palette.color(group, QPalette::HighlightedText)));
    }
    // Desktops have a pale ground of tool tips in their dark palettes, too, which is glaring for a remark.
    if (IsDark(palette.color(QPalette::Window)) != IsDark(palette.color(QPalette::ToolTipBase))) {
        const QColor ground = Mixed(palette.color(QPalette::Window), kRemark, kRemarkShare);
        palette.setColor(QPalette::ToolTipBase, ground);
        palette.setColor(QPalette::ToolTipText, Readable(palette.color(QPalette::WindowText), ground));
    }
    const QColor pale = Mixed(palette.color(QPalette::Inactive, QPalette::Base),
                              palette.color(QPalette::Active, QPalette::Highlight), kPaleSelection);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, pale);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText,
                     Readable(palette.color(QPalette::Inactive, QPalette::Text), pale));
}

void WindowStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    if (element == PE_PanelItemViewRow && qstyleoption_cast<const QStyleOptionViewItem*>(option)) {
        const QStyleOptionViewItem item = PaleIfPale(option, widget);
        QProxyStyle::drawPrimitive(element, &item, painter, widget);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_PanelButtonTool && option->state.testFlag(State_On))
        FramePressed(*option, *painter);
    if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton)
        DrawOutline(*option, *painter, element == PE_IndicatorRadioButton);
    // A menu or list over other panes, whose ground it shares.
    if (element == PE_PanelMenu || (element == PE_Frame && option->state.testFlag(State_Raised)))
        DrawOutline(*option, *painter, false);
    const bool isPane = element == PE_Frame && qobject_cast<const QAbstractScrollArea*>(widget);
    if (!isPane || !option->state.testFlag(State_HasFocus))
        return;
    painter->save();
    painter->setPen(option->palette.color(QPalette::Active, QPalette::Highlight));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

void WindowStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element == CE_ItemViewItem && qstyleoption_cast<const QStyleOptionViewItem*>(option)) {
        const QStyleOptionViewItem item = PaleIfPale(option, widget);
        QProxyStyle::drawControl(element, &item, painter, widget);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

int WindowStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* returnData) const {
    switch (hint) {
        case SH_DialogButtonBox_ButtonsHaveIcons:
            return 0;
        // Keeps the names in a tree at full contrast without the focus.
        case SH_ItemView_ShowDecorationSelected:
            return 1;
        default:
            return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QIcon WindowStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    switch (icon) {
        case SP_MessageBoxQuestion:
            return IconFor("Question");
        case SP_MessageBoxInformation:
            return IconFor("About");
        case SP_MessageBoxWarning:
        case SP_MessageBoxCritical:
            return IconFor("Problems");
        default:
            return QProxyStyle::standardIcon(icon, option, widget);
    }
}

int WindowStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_ToolBarItemSpacing:
            return 2;
        case PM_ToolBarItemMargin:
            return 3;
        // The tabs below the project tree keep whole names in the smallest window.
        case PM_TabBarTabHSpace:
            return 10;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

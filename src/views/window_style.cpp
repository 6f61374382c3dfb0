#include "views/window_style.h"

#include <QWidget>
#include <algorithm>

#include "views/icons.h"

int HeadHeight(const QWidget& widget) {
    return std::max(widget.fontMetrics().height() + 11, 28);
}

WindowStyle::WindowStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

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
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

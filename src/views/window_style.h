// How the widgets of the program look where the system leaves it open: flat, without pictures on the buttons of
// dialogs, and with the signs of the program's own icon set.
#pragma once

#include <QProxyStyle>

/// Height of what stands above a pane: search field, captions, path. One for all, so that the panes begin on one line.
[[nodiscard]] int HeadHeight(const QWidget& widget);

class WindowStyle final : public QProxyStyle {
    Q_OBJECT

public:
    WindowStyle();

    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returnData) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                                     const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

// The style of the program's widgets: flat, no icons on dialog buttons, and indicators from the program's icon set.
#pragma once

#include <QProxyStyle>

/// Height of the row above a pane: search field, captions, path. It is the same for all, so that the panes align.
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

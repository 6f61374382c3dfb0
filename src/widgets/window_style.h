// The style of the program's widgets: flat, no icons on dialog buttons, indicators from the program's icon set,
// readable colours on light and dark ground, and a frame and a strong selection where the focus is.
#pragma once

#include <QProxyStyle>

/// Height of the row above a pane: search field, captions, path. It is the same for all, so that the panes align.
[[nodiscard]] int HeadHeight(const QWidget& widget);

/// Whether the selection in a list or tree is pale, because the focus is elsewhere.
/// @param widget  the view or its viewport; may be null
[[nodiscard]] bool HasPaleSelection(const QWidget* widget);

/// The frame of buttons that stay pressed.
[[nodiscard]] QColor PressedFrame(const QPalette& palette);
/// The colour that outlines check boxes and radio buttons.
[[nodiscard]] QColor IndicatorOutline(const QPalette& palette);

class WindowStyle final : public QProxyStyle {
    Q_OBJECT

public:
    WindowStyle();

    /// Replaces colours in which text would be hard to read.
    void polish(QPalette& palette) override;
    using QProxyStyle::polish;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returnData) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                                     const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

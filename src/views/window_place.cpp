#include "views/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <algorithm>

#include "platform/settings_file.h"
#include "views/twips.h"

namespace {

constexpr QSize kDesignSize(1280, 800);
constexpr int kFrame = 8;  // left and right, or above and below

}  // namespace

void PlaceWindow(QWidget& window, const WindowSize& size) {
    window.resize(kDesignSize);
    if (!size.Width.empty() && !size.Height.empty())
        window.resize(ToPixels(LeadingNumber(size.Width)), ToPixels(LeadingNumber(size.Height)));
    if (!size.Left.empty() && !size.Top.empty())
        window.move(ToPixels(LeadingNumber(size.Left)), ToPixels(LeadingNumber(size.Top)));
    const QScreen* screen = QGuiApplication::screenAt(window.geometry().center());
    // The frame comes with the window's first display; on a small screen it must not push the status bar out.
    const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect room = (screen ? screen : QGuiApplication::primaryScreen())
                           ->availableGeometry()
                           .adjusted(0, 0, -kFrame, -titleBar - kFrame);
    window.resize(window.size().boundedTo(room.size()).expandedTo(window.minimumSize()));
    // The place may be from another screen, or from one that is no longer connected.
    if (!room.contains(window.geometry()))
        window.move(std::clamp(window.x(), room.left(), std::max(room.left(), room.right() - window.width())),
                    std::clamp(window.y(), room.top(), std::max(room.top(), room.bottom() - window.height())));
    if (size.maximised)
        window.setWindowState(Qt::WindowMaximized);
}

void StorePlace(const QWidget& window, WindowSize& size) {
    size.maximised = window.isMaximized();
    size.Left = TwipsText(window.x());
    size.Top = TwipsText(window.y());
    size.Width = TwipsText(window.width());
    size.Height = TwipsText(window.height());
}

// Places and sizes are stored in twips, 15 to a pixel of the classic screen.
#pragma once

#include <string>

inline constexpr int kTwipsPerWindowPixel = 15;

[[nodiscard]] constexpr int ToTwips(int pixels) {
    return pixels * kTwipsPerWindowPixel;
}
[[nodiscard]] constexpr int ToPixels(double twips) {
    return static_cast<int>(twips / kTwipsPerWindowPixel);
}
[[nodiscard]] inline std::string TwipsText(int pixels) {
    return std::to_string(ToTwips(pixels));
}

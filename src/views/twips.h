// Places and sizes are stored in twips, 15 to a pixel of the classic screen.
#pragma once

#include <algorithm>
#include <string>

inline constexpr int kTwipsPerWindowPixel = 15;

[[nodiscard]] constexpr int ToTwips(int pixels) {
    return pixels * kTwipsPerWindowPixel;
}
/// At most as much as all screens together have, in either direction: a settings file can hold any number.
[[nodiscard]] constexpr int ToPixels(double twips) {
    constexpr double kMost = 30'000;
    return static_cast<int>(std::clamp(twips / kTwipsPerWindowPixel, -kMost, kMost));
}
[[nodiscard]] inline std::string TwipsText(int pixels) {
    return std::to_string(ToTwips(pixels));
}

// The look of the meanings of code: a colour of the settings, made readable on the background, and a shape where colour
// alone would distinguish certain from possible calls.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QTextCharFormat>
#include <cstdint>

#include "display/code_colours.h"
#include "shell/settings.h"

/// A colour of the settings, 32-bit BGR.
[[nodiscard]] QColor ColourFromBgr(std::int32_t bgr);
/// Contrast of two colours by their relative luminance, 1 to 21.
[[nodiscard]] double Contrast(const QColor& a, const QColor& b);
[[nodiscard]] bool IsDark(const QColor& ground);
/// What shapes need to be seen; text needs more.
constexpr double kVisibleContrast = 3;
/// `base`, made darker or lighter until it is readable on `ground`; keeps the hue.
[[nodiscard]] QColor Readable(const QColor& base, const QColor& ground, double contrast = 4.5);
/// `share` of `top` over `ground`.
[[nodiscard]] QColor Mixed(const QColor& ground, const QColor& top, double share);
/// The ink of less important text on `ground`: paler than ordinary text, and still readable.
[[nodiscard]] QColor Dimmed(const QPalette& palette, const QColor& ground);
/// The background of code: the palette's base, or a greyer one.
[[nodiscard]] QColor CodeGround(const QPalette& palette, Shade shade);

/// Style of a meaning: possible calls have a dotted underline, results of functions are bold, inactive code is italic.
[[nodiscard]] QTextCharFormat StyleOf(Colour what, const QColor& ground, const Settings& settings);
/// Style of a marked place of a call; that of the place stepped to is stronger.
[[nodiscard]] QTextCharFormat PlaceStyle(Colour what, const QPalette& palette, const QColor& ground, bool isCurrent,
                                         const Settings& settings);

/// A font of the settings; where the system lacks its family it is `fallback` in the size set.
[[nodiscard]] QFont FontFromSetting(const FontSetting& setting, const QFont& fallback);

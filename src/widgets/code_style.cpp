#include "widgets/code_style.h"

#include <QFontDatabase>
#include <algorithm>
#include <cmath>

#include "widgets/qt_text.h"

namespace {

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

}  // namespace

QColor ColourFromBgr(std::int32_t bgr) {
    return {bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF};
}

bool IsDark(const QColor& ground) {
    return ground.lightness() < 128;
}

double Contrast(const QColor& a, const QColor& b) {
    const double first = Luminance(a) + 0.05;
    const double second = Luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor Readable(const QColor& base, const QColor& ground, double contrast) {
    if (Contrast(base, ground) >= contrast)
        return base;
    // Mixing with black or white keeps the hue, and pale colours stay paler than strong ones of the same hue.
    const QColor end = Contrast(Qt::black, ground) > Contrast(Qt::white, ground) ? Qt::black : Qt::white;
    constexpr int kSteps = 64;
    for (int step = 1; step < kSteps; ++step)
        if (const QColor colour = Mixed(base, end, static_cast<double>(step) / kSteps).toRgb();
            Contrast(colour, ground) >= contrast)
            return colour;
    return end;
}

QColor Mixed(const QColor& ground, const QColor& top, double share) {
    const auto mix = [share](double below, double above) {
        return static_cast<float>(below + (above - below) * share);
    };
    return QColor::fromRgbF(mix(ground.redF(), top.redF()), mix(ground.greenF(), top.greenF()),
                            mix(ground.blueF(), top.blueF()));
}

QColor Dimmed(const QPalette& palette, const QColor& ground) {
    return Readable(Mixed(ground, palette.color(QPalette::Text), 0.6), ground);
}

QColor CodeGround(const QPalette& palette, Shade shade) {
    const QColor base = palette.color(QPalette::Base);
    if (shade == Shade::Plain)
        return base;
    // Black over white gives (240, 240, 240), and half of that.
    return Mixed(base, palette.color(QPalette::Text), shade == Shade::Grey ? 0.0588 : 0.0294);
}

QTextCharFormat StyleOf(Colour what, const QColor& ground, const Settings& settings) {
    QTextCharFormat style;
    if (what == Colour::None)
        return style;
    style.setForeground(Readable(ColourFromBgr(ColourOf(what, settings)), ground));
    if (what == Colour::CallMayBe)
        style.setUnderlineStyle(QTextCharFormat::DotLine);
    if (what == Colour::FunctionResult)
        style.setFontWeight(QFont::Bold);
    if (what == Colour::NotCompiled)
        style.setFontItalic(true);
    return style;
}

QTextCharFormat PlaceStyle(Colour what, const QPalette& palette, const QColor& ground, bool isCurrent,
                           const Settings& settings) {
    const QColor colour =
        what == Colour::None ? palette.color(QPalette::Highlight) : ColourFromBgr(ColourOf(what, settings));
    const QColor marked = Mixed(ground, colour, isCurrent ? 0.45 : 0.2);
    QTextCharFormat style = StyleOf(what, marked, settings);
    style.setBackground(marked);
    style.setForeground(Readable(isCurrent ? palette.color(QPalette::Text) : colour, marked));
    return style;
}

QFont FontFromSetting(const FontSetting& setting, const QFont& fallback) {
    const QString family = ToQString(setting.name);
    QFont font = QFontDatabase::hasFamily(family) ? QFont(family) : fallback;
    font.setPointSizeF(std::clamp(std::abs(static_cast<double>(setting.size)), 4.0, 200.0));
    font.setBold(setting.bold);
    font.setItalic(setting.italic);
    return font;
}

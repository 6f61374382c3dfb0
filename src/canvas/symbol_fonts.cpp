#include "canvas/symbol_fonts.h"

#include <QFontMetricsF>
#include <cmath>

#include "widgets/qt_text.h"

namespace {

constexpr int kPixels = 9;  // 6.75 points

QFont MakeFont(bool bold) {
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(kPixels);
    font.setBold(bold);
    // Hinted widths differ from screen to screen, and a symbol should not.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

}  // namespace

QFont FontOf(SymbolLabel label) {
    static const QFont regular = MakeFont(false);
    static const QFont bold = MakeFont(true);
    return label == SymbolLabel::Name ? bold : regular;
}

GraphSize SymbolFonts::LabelPixels(std::string_view caption, SymbolLabel label) const {
    const QFontMetricsF metrics(FontOf(label));
    return {std::ceil(metrics.horizontalAdvance(ToQString(caption))), std::ceil(metrics.height())};
}

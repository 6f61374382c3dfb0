// The captions of symbols on the screen: their fonts, and their sizes at the 96 dots per inch that diagrams are in.
#pragma once

#include <QFont>

#include "xgraph/symbol.h"

/// The font of a caption, in pixels at 96 dots per inch.
[[nodiscard]] QFont FontOf(SymbolLabel label);

class SymbolFonts final : public SymbolSizes {
public:
    [[nodiscard]] GraphSize LabelPixels(std::string_view caption, SymbolLabel label) const override;
};

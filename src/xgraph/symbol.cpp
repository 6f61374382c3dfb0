#include "xgraph/symbol.h"

#include <array>
#include <cmath>
#include <initializer_list>

#include "model/clsModul.h"
#include "model/clsTypeLib.h"

namespace {

constexpr double kImagePixels = 16;
constexpr double kEmPixels = 9;  // 6.75 points
constexpr double kLinePixels = 11;

// Widths of the characters from blank to "~" in thousandths of an em.
using Widths = std::array<std::int16_t, 95>;
constexpr Widths kRegular{278,  278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333, 278, 278,  // to "/"
                          556,  556, 556, 556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556,  // to "?"
                          1015, 667, 667, 722, 722, 667, 611, 778, 722, 278, 500, 667, 556, 833, 722, 778,  // to "O"
                          667,  778, 722, 667, 611, 722, 667, 944, 667, 667, 611, 278, 278, 278, 469, 556,  // to "_"
                          333,  556, 556, 500, 556, 556, 278, 556, 556, 222, 222, 500, 222, 833, 556, 556,  // to "o"
                          556,  556, 333, 500, 278, 556, 500, 722, 500, 500, 500, 334, 260, 334, 584};
constexpr Widths kBold{278, 333, 474, 556, 556, 889, 722, 238, 333, 333, 389, 584, 278, 333, 278, 278,  // to "/"
                       556, 556, 556, 556, 556, 556, 556, 556, 556, 556, 333, 333, 584, 584, 584, 611,  // to "?"
                       975, 722, 722, 722, 722, 667, 611, 778, 722, 278, 556, 722, 611, 833, 722, 778,  // to "O"
                       667, 778, 722, 667, 611, 722, 667, 944, 667, 667, 611, 333, 278, 333, 584, 556,  // to "_"
                       333, 556, 611, 556, 611, 556, 333, 611, 611, 278, 278, 556, 278, 889, 611, 611,  // to "o"
                       611, 611, 389, 556, 333, 611, 556, 778, 556, 556, 500, 389, 280, 389, 584};

GraphSize InTwips(GraphSize pixels) {
    return {pixels.width * kTwipsPerPixel, pixels.height * kTwipsPerPixel};
}

}  // namespace

std::string_view ModulCaptionOf(const CodeObject& object) {
    if (object.Class() == ObjectClass::TypeLib)
        return {};
    if (object.Class() == ObjectClass::Modul)
        return object.myLibrary ? object.myLibrary->myNameOrg() : object.myNameOrg();
    if (object.Modul)
        return object.Modul->myNameOrg();
    return object.myLibrary ? object.myLibrary->myNameOrg() : std::string_view();
}

void AlignObjects(ctlGraphObj& symbol, const SymbolSizes& sizes) {
    const GraphSize image = InTwips({kImagePixels, kImagePixels});
    const GraphSize modul = InTwips(sizes.LabelPixels(symbol.MyModul, SymbolLabel::Modul));
    const GraphSize name = InTwips(sizes.LabelPixels(symbol.MyName, SymbolLabel::Name));
    const GraphSize size = sizes.Given(symbol.CodePath)
                               .value_or(GraphSize{std::max({image.width, modul.width, name.width}),
                                                   image.height + name.height + modul.height});
    const auto centred = [&](GraphSize part, double top) {
        return GraphRect{(size.width - part.width) / 2, top, part.width, part.height};
    };
    symbol.layout = {size, centred(image, 0), centred(modul, image.height), centred(name, image.height + modul.height)};
}

GraphSize FixedSymbolSizes::LabelPixels(std::string_view caption, SymbolLabel label) const {
    const Widths& widths = label == SymbolLabel::Name ? kBold : kRegular;
    int thousandths = 0;
    for (const char c : caption) {
        const auto place = static_cast<std::size_t>(static_cast<unsigned char>(c)) - ' ';
        thousandths += place < widths.size() ? widths[place] : widths['n' - ' '];
    }
    return {std::ceil(thousandths * kEmPixels / 1000), kLinePixels};
}

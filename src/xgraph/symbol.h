// A symbol of the X-Graph: a picture above two centred captions. How large a caption is depends on fonts, so it comes
// in through a port: the window measures, the console has a fixed table.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/code_object.h"
#include "xgraph/geometry.h"

class clsModul;

/// The captions: that of the module or library in Arial 6.75 pt, grey; that of the object below it, bold.
enum class SymbolLabel : std::uint8_t { Modul, Name };

/// The port for sizes.
class SymbolSizes {
public:
    virtual ~SymbolSizes() = default;
    /// Size of a caption in pixels at 96 dots per inch. An empty caption has the height of a line.
    /// @param caption  bytes as in the source
    [[nodiscard]] virtual GraphSize LabelPixels(std::string_view caption, SymbolLabel label) const = 0;
    /// Size of a whole symbol in twips, if it does not follow from its captions.
    [[nodiscard]] virtual std::optional<GraphSize> Given(std::string_view /*codePath*/) const { return {}; }
};

/// Where the parts of a symbol are, in twips from its own top left corner.
struct SymbolLayout {
    GraphSize size;
    GraphRect image;  // 16 by 16 pixels
    GraphRect modul;
    GraphRect name;
    bool operator==(const SymbolLayout&) const = default;
};

struct ctlGraphObj {
    int Index = 0;         // from 1; that of a symbol which was removed is never used again
    std::string CodePath;  // of its object, lower case: the key of the symbol
    ObjectClass kind = ObjectClass::Modul;
    CodeObject* object = nullptr;     // of this generation of the project; XGraph finds that of the next
    const clsModul* modul = nullptr;  // of the project, that the object belongs to; null for what libraries contain
    std::string MyModul;              // first caption: of the module or library of the object; bytes as in the source
    std::string MyName;               // second caption: name of the object
    std::string_view image;           // key of its icon, as in the trees
    double Left = 0;
    double Top = 0;
    SymbolLayout layout;
    int zOrder = 0;  // higher ones are in front; of equal ones the later
    bool Selected = false;

    [[nodiscard]] double Width() const { return layout.size.width; }
    [[nodiscard]] double Height() const { return layout.size.height; }
    [[nodiscard]] GraphRect Frame() const { return {Left, Top, Width(), Height()}; }
    [[nodiscard]] GraphPoint Center() const { return Frame().Center(); }
};

/// First caption of an object: the module that it belongs to; for a module that of its library, or its own name if it
/// has none; empty for a library.
[[nodiscard]] std::string_view ModulCaptionOf(const CodeObject& object);
/// Sets the layout: picture and captions one below the other, centred in the widest of them.
void AlignObjects(ctlGraphObj& symbol, const SymbolSizes& sizes);

/// Sizes without a screen: the widths of Helvetica's letters, which are those of Arial, in a line of eleven pixels.
class FixedSymbolSizes : public SymbolSizes {
public:
    [[nodiscard]] GraphSize LabelPixels(std::string_view caption, SymbolLabel label) const override;
};

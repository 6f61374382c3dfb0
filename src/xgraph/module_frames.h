// Frames around the symbols of each module, for display only.
#pragma once

#include <string_view>
#include <vector>

#include "xgraph/graph.h"

struct ModuleFrame {
    std::string_view modul;  // its name as the symbols show it; bytes as in the source, lasts as long as they do
    GraphRect rect;          // around all its symbols, with a margin, and room for the name above
};

/// Between a frame and its symbols.
inline constexpr double kFrameMargin = 8 * kTwipsPerPixel;
/// Above them, for the name of the module.
inline constexpr double kFrameNameHeight = 16 * kTwipsPerPixel;

/// In the order in which their first symbols were created. What belongs to no module has none.
[[nodiscard]] std::vector<ModuleFrame> ModuleFrames(const XGraph& graph);

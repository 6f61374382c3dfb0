#include "xgraph/module_frames.h"

#include <unordered_map>

std::vector<ModuleFrame> ModuleFrames(const XGraph& graph) {
    std::vector<ModuleFrame> frames;
    std::unordered_map<std::string_view, std::size_t> numbers;
    for (const auto& symbol : graph.GraphObjects()) {
        if (symbol->MyModul.empty())
            continue;
        const auto [entry, isNew] = numbers.emplace(symbol->MyModul, frames.size());
        if (isNew)
            frames.push_back({symbol->MyModul, symbol->Frame()});
        else
            frames[entry->second].rect = frames[entry->second].rect.With(symbol->Frame());
    }
    for (ModuleFrame& frame : frames) {
        GraphRect& rect = frame.rect;
        rect = {rect.left - kFrameMargin, rect.top - kFrameMargin - kFrameNameHeight, rect.width + 2 * kFrameMargin,
                rect.height + 2 * kFrameMargin + kFrameNameHeight};
    }
    return frames;
}

#include "model/line_numbers.h"

#include <algorithm>

#include "model/clsModul.h"
#include "source/module_text.h"

int LineNumbers::Of(const clsModul& modul, Pos pos) {
    const auto [found, isNew] = lineFeeds_.try_emplace(&modul);
    std::vector<Pos>& lineFeeds = found->second;
    if (isNew && modul.text) {
        const std::string_view text = modul.text->ModulTextOrg();
        for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1))
            lineFeeds.push_back(static_cast<Pos>(at) + 1);
    }
    return static_cast<int>(std::lower_bound(lineFeeds.begin(), lineFeeds.end(), pos) - lineFeeds.begin()) + 1;
}

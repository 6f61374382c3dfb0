#include "console/did_you_mean.h"

#include <vector>

#include "model/clsProjekt.h"
#include "model/nearest_paths.h"

std::string DidYouMean(const clsProjekt& projekt, std::string_view codePath) {
    constexpr std::size_t kMost = 5;
    const std::vector<std::string> nearest = NearestCodePaths(projekt, codePath, kMost);
    std::string text;
    for (const std::string& path : nearest)
        text.append(text.empty()               ? "; did you mean "
                    : &path == &nearest.back() ? " or "
                                               : ", ")
            .append(projekt.TheNames().Page().ToUtf8(path));
    return text.empty() ? text : text + '?';
}

// Looks at all modules of a project side by side, where one module alone is too little work to hand over.
#pragma once

#include <algorithm>
#include <vector>

#include "model/clsModul.h"
#include "model/clsProjekt.h"
#include "shell/work_ahead.h"

/// What `of(modul)` gives for each module that has a text, in the order of AllModules.
template <class Result, class Of>
[[nodiscard]] std::vector<Result> OfEachModule(const clsProjekt& projekt, const Of& of) {
    constexpr std::size_t kTogether = 24;
    std::vector<const clsModul*> modules;
    for (const clsModul* modul : projekt.AllModules())
        if (modul->text && modul->tokens)
            modules.push_back(modul);
    WorkAhead<std::vector<Result>> parts((modules.size() + kTogether - 1) / kTogether,
                                         [&](std::size_t nr, std::size_t) {
                                             std::vector<Result> results;
                                             const std::size_t end = std::min((nr + 1) * kTogether, modules.size());
                                             for (std::size_t at = nr * kTogether; at < end; ++at)
                                                 results.push_back(of(*modules[at]));
                                             return results;
                                         });
    std::vector<Result> all;
    all.reserve(modules.size());
    for (std::size_t taken = 0; taken < modules.size(); taken += kTogether)
        std::ranges::move(parts.Next(), std::back_inserter(all));
    return all;
}

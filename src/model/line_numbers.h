// Physical lines of many positions, each text counted once.
#pragma once

#include <unordered_map>
#include <vector>

#include "shell/vb_text.h"

class clsModul;

class LineNumbers {
public:
    /// Line of a position in the text of a module, from 1.
    [[nodiscard]] int Of(const clsModul& modul, Pos pos);

private:
    std::unordered_map<const clsModul*, std::vector<Pos>> lineFeeds_;
};

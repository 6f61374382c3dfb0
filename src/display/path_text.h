// The answers to "which ways lead from one object to another" and "what depends on an object", as rows.
#pragma once

#include <string>
#include <vector>

#include "display/reach_rows.h"

class Reach;

struct ReachAnswer {
    std::string title;
    std::vector<ReachRow> rows;  // each way, or each part of the impact, is a section
};

/// The shortest way first, and further ones by length.
[[nodiscard]] ReachAnswer PathAnswer(const Reach& reach, const CodeObject& from, const CodeObject& to);
/// By distance; what certainly depends on the object before what possibly does.
[[nodiscard]] ReachAnswer ImpactAnswer(const Reach& reach, const CodeObject& object);

// The page that says why an object is alive or dead: the reason and the grade in a sentence each, the chain that keeps
// it or the dead code around it, the entry points that reach it, and what would go with it.
#pragma once

#include <set>
#include <vector>

#include "display/call_places.h"
#include "display/reach_rows.h"

class Reasons;

enum class WhySection : std::uint8_t { Reason, Chain, Callers, EntryPoints, GoesWithIt };

struct WhyRows {
    std::vector<ReachRow> rows;
    std::vector<CallPlace> places;  // of the rows, in their order; valid for one generation
};

/// Longer lists are cut to these many rows, and a further one shows the rest.
inline constexpr std::size_t kFirstRows = 5;

/// @param whole  sections that are not cut
[[nodiscard]] WhyRows WhyRowsOf(const Reasons& reasons, const CodeObject& object,
                                const std::set<WhySection>& whole = {});
/// One line for hover texts; empty for objects that have no answer of their own.
[[nodiscard]] std::string WhySentence(const Reasons& reasons, const CodeObject& object);

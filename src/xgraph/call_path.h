// How one procedure reaches another.
#pragma once

#include <vector>

#include "xgraph/graph.h"

class clsProzedur;

struct CallPath {
    std::vector<clsProzedur*> procedures;  // both ends included; empty if none leads there
    bool isCertain = true;                 // else one of its calls or more is only possible
    [[nodiscard]] bool Exists() const { return !procedures.empty(); }
    [[nodiscard]] int Calls() const { return static_cast<int>(procedures.size()) - 1; }
};

/// The shortest chain of calls from one procedure to another: of certain calls, else of any. Of equally short ones it
/// is the one whose calls come first in the code.
[[nodiscard]] CallPath ShortestCallPath(clsProzedur& from, clsProzedur& to);

/// Puts the procedures that have no symbol on the canvas, each below its caller, and selects the path. Returns how many
/// those were. The first procedure must have a symbol.
int ShowCallPath(XGraph& graph, const CallPath& path);

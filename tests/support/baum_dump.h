// A tree as text that a test can compare.
#pragma once

#include <string>

class Baum;

/// One line a node, children indented by two blanks: "modMain [module]", "Main() [ProcedureDeath] grey",
/// "FORM [OrdnerZu] bold". Checked nodes end in " checked". Keys and folds are left out.
[[nodiscard]] std::string DumpBaum(const Baum& tree);

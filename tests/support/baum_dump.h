// A tree as text that a test can compare.
#pragma once

#include <functional>
#include <string>

class Baum;
class BaumNode;

/// One line a node, children indented by two blanks: "modMain [module]", "Main() [ProcedureDeath] grey",
/// "FORM [OrdnerZu] bold". Checked nodes end in " checked". Keys and folds are left out.
[[nodiscard]] std::string DumpBaum(const Baum& tree);
/// The keys of those nodes, in the order of the tree, one blank between two.
[[nodiscard]] std::string KeysWhere(const Baum& tree, const std::function<bool(const BaumNode&)>& holds);

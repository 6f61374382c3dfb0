// Formats a tree as text for comparison in a test.
#pragma once

#include <functional>
#include <string>

class Baum;
class BaumNode;

/// One line per node, children indented by two blanks: "modMain [module]", "Main() [ProcedureDeath] grey", "FORM
/// [OrdnerZu] bold". Checked nodes end in " checked". Keys and expansion are omitted.
[[nodiscard]] std::string DumpBaum(const Baum& tree);
/// The keys of the nodes for which `holds` is true, in the order of the tree, separated by blanks.
[[nodiscard]] std::string KeysWhere(const Baum& tree, const std::function<bool(const BaumNode&)>& holds);

#include "support/baum_dump.h"

#include "display/baum.h"
#include "display/tree_marks.h"

namespace {

template <class Visit>
void ForEach(const std::vector<BaumNode*>& nodes, std::size_t indent, Visit visit) {
    for (const BaumNode* node : nodes) {
        visit(*node, indent);
        ForEach(node->ChildNodes(), indent + 2, visit);
    }
}

}  // namespace

std::string DumpBaum(const Baum& tree) {
    std::string text;
    ForEach(tree.Roots(), 0, [&text](const BaumNode& node, std::size_t indent) {
        text.append(indent, ' ').append(node.Text()).append(" [").append(node.Image()).append("]");
        text.append(node.Bold() ? " bold" : "").append(node.ForeColor() == NodeColour::Grey ? " grey" : "");
        text.append(node.Checked() ? " checked\n" : "\n");
    });
    return text;
}

std::string KeysWhere(const Baum& tree, const std::function<bool(const BaumNode&)>& holds) {
    std::string keys;
    ForEach(tree.Roots(), 0, [&](const BaumNode& node, std::size_t) {
        if (holds(node))
            keys.append(keys.empty() ? "" : " ").append(node.Key());
    });
    return keys;
}

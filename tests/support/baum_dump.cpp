#include "support/baum_dump.h"

#include "display/baum.h"
#include "display/tree_marks.h"

namespace {

void Dump(const BaumNode& node, std::size_t indent, std::string& text) {
    text.append(indent, ' ').append(node.Text()).append(" [").append(node.Image()).append("]");
    if (node.Bold())
        text += " bold";
    if (node.ForeColor() == kTextGrey)
        text += " grey";
    if (node.Checked())
        text += " checked";
    text += '\n';
    for (const BaumNode* child : node.ChildNodes())
        Dump(*child, indent + 2, text);
}

}  // namespace

std::string DumpBaum(const Baum& tree) {
    std::string text;
    for (const BaumNode* root : tree.Roots())
        Dump(*root, 0, text);
    return text;
}

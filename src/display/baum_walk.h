// A walk over all nodes of a tree, parents first, in their order.
#pragma once

#include "display/baum.h"

template <class Use>
void ForEachNode(const Baum& tree, Use use) {
    for (const BaumNode* node = tree.Roots().empty() ? nullptr : tree.Roots().front(); node;) {
        use(*node);
        const BaumNode* next = node->Child();
        for (; !next && node; node = node->Parent())
            next = node->Next();
        node = next;
    }
}

/// All nodes with this property, by identity that survives a refill.
[[nodiscard]] inline std::vector<NodeId> NodesWhere(const Baum& tree, bool (BaumNode::*property)() const) {
    std::vector<NodeId> nodes;
    ForEachNode(tree, [&](const BaumNode& node) {
        if ((node.*property)())
            nodes.push_back(node.Id());
    });
    return nodes;
}

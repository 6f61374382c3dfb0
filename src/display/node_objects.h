// From an object to its node and back.
#pragma once

#include <string>
#include <string_view>

#include "display/baum.h"

class CodeObject;
class clsProjekt;

/// The code path of an object's node, and for a group that of its module; empty for roots.
[[nodiscard]] std::string ObjectPathOf(const NodeId& node);
/// The key of an object's node: its code path, for a local that of its procedure and the name. Paths of locals lack the
/// accessor, and would be the same for all accessors of a property. The key of a library's event says so, as a method
/// can have its path.
[[nodiscard]] std::string NodeKeyOf(const CodeObject& object);
/// The key of a node for `object` below one of another object, where it is not at its place in the project: an object
/// can be at many such places of a tree. All keys above come before its own.
[[nodiscard]] std::string NodeKeyBelow(const BaumNode& above, const CodeObject& object);
/// The own key of such a node; that of any other node is returned as it is.
[[nodiscard]] std::string_view OwnKeyOf(std::string_view nodeKey);
/// The object of the project whose node has that key: arguments and local variables too, which no name space knows.
[[nodiscard]] CodeObject* ObjectOfNode(const clsProjekt& projekt, const NodeId& node);

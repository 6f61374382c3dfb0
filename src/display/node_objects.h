// From an object to its node and back.
#pragma once

#include <string>

#include "display/baum.h"

class CodeObject;
class clsProjekt;

/// The code path of an object's node, and for a group that of its module; empty for roots.
[[nodiscard]] std::string ObjectPathOf(const NodeId& node);
/// The key of an object's node: its code path, for a local that of its procedure and the name. Paths of locals lack the
/// accessor, and would be the same for all accessors of a property. The key of a library's event says so, as a method
/// can have its path.
[[nodiscard]] std::string NodeKeyOf(const CodeObject& object);
/// The object of the project whose node has that key: arguments and local variables too, which no name space knows.
[[nodiscard]] CodeObject* ObjectOfNode(const clsProjekt& projekt, const NodeId& node);

// From a node back to its object.
#pragma once

#include <string>

#include "display/baum.h"

class CodeObject;
class clsProjekt;

/// The code path of an object's node, and for a group that of its module; empty for roots.
[[nodiscard]] std::string ObjectPathOf(const NodeId& node);
/// The object of the project with that path: arguments and local variables too, which no name space knows. Those of
/// the accessors of one property share their keys; the first accessor that has one of the name gives it.
[[nodiscard]] CodeObject* ObjectOfNode(const clsProjekt& projekt, const NodeId& node);

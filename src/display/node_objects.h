// From the key of a node back to the object behind it.
#pragma once

#include <string_view>

class CodeObject;

/// The key of an object's node, or of the module that a group node belongs to.
[[nodiscard]] std::string_view ObjectKeyOfNode(std::string_view key);
/// The object of the open project behind a node: arguments and local variables too, which no name space knows. Those of
/// the accessors of one property share their keys; the first accessor that has one of the name gives it.
[[nodiscard]] CodeObject* ObjectOfNode(std::string_view key);

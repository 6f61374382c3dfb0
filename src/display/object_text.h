// The hover text of an object, the same in every tree and in the code.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/clsCall.h"

class clsProjekt;
class CodeObject;
class LocalUses;

/// Lines in UTF-8: kind and path, the declaration as written in the source, the owner, callers and calls by certainty,
/// lines, and why the object is dead.
[[nodiscard]] std::vector<std::string> ObjectText(const clsProjekt& projekt, const LocalUses& locals,
                                                  const CodeObject& object);

/// A further line for the node of a dependency tree: how many edges of this kind lead from `caller` to `target`, and
/// the line of the first. A module as caller includes all its procedures and declarations; certain calls include uses.
/// Empty when there is none.
[[nodiscard]] std::string CallsText(const CodeObject& caller, const CodeObject& target, CallType type);

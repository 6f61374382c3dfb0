// Places where the code names an object though no call was found there: in bounds of arrays and default values, which
// the walk for calls passes over, in code left out by conditional compilation, in attributes.
#pragma once

#include <cstdint>
#include <vector>

#include "model/clsModul.h"
#include "reach/sought.h"

class clsProjekt;

enum class MentionKind : std::uint8_t { Code, NotCompiled, DefaultMember };

struct Mention {
    const CodeObject* object = nullptr;
    MentionKind kind = MentionKind::Code;
    const clsModul* modul = nullptr;
    Pos pos = 0;
};

/// In the order of AllModules, those of a module by kind. The name of a local of the procedure, or of an argument that
/// ":=" follows, means no object. A name after a point means those whose module or enumeration the name before is, and
/// every member of a type, class, form or user control, unless what is before the point has another type.
[[nodiscard]] std::vector<Mention> MentionsOf(const clsProjekt& projekt, const Sought& sought);

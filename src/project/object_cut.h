// What has to be cut out of the text of a module so that one object is gone and all others read as before. Nothing is
// changed here: the module is read again from the shorter text.
#pragma once

#include <vector>

#include "shell/text_numbers.h"
#include "shell/vb_text.h"

class CodeObject;

/// A stretch of a module's text, or of the bytes of its file, where positions count from 0.
struct Stretch {
    Pos start = 0;
    Pos length = 0;
    [[nodiscard]] Pos End() const { return start + length; }
    bool operator==(const Stretch&) const = default;
};

struct ObjectCut {
    std::vector<Stretch> stretches;  // rising, none next to another
    Text whyNot = Text::None;        // why there are none
};

/// What goes with an object: a procedure, declaration or block with its whole lines, a variable or constant among
/// others with its comma, a control with all its blocks and the controls in them. The lines of attributes that name it
/// go as well, and one of two blank lines that would meet. Comments above stay.
[[nodiscard]] ObjectCut DeleteMe(const CodeObject& object);

// A control of a form or user control; one object represents a whole control array.
#pragma once

#include "model/code_object.h"

class clsControl final : public CodeObject {
public:
    clsControl() : CodeObject(ObjectClass::Control) {}

    [[nodiscard]] std::string_view DatenTyp() const { return type.View(); }

    Name type;  // class text, lower case, such as "vb.commandbutton"
};

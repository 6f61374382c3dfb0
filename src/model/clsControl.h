// A control of a form or user control; one object stands for a whole control array.
#pragma once

#include "model/clsCollection.h"
#include "model/code_object.h"

class clsControl final : public CodeObject {
public:
    clsControl() : CodeObject(ObjectClass::Control) {}

    [[nodiscard]] std::string CodePathOrg() const override;
    [[nodiscard]] std::string_view GetImageKey() const override { return "control"; }
    [[nodiscard]] std::string_view DatenTyp() const { return type.View(); }
    /// The entry of MyControls under `name`, or null.
    [[nodiscard]] clsControl* Get_Object_Aus_Name(std::string_view name) const { return MyControls.Item(name); }

    Name type;  // class text, lower case, such as "vb.commandbutton"
    clsCollection<clsControl> MyControls;
};

// A variable, constant, argument, type member or enum member.
#pragma once

#include "model/code_object.h"
#include "model/counters.h"

class clsVariable final : public CodeObject {
public:
    clsVariable() : CodeObject(ObjectClass::Variable) {}

    [[nodiscard]] std::string CodePathOrg() const override;
    [[nodiscard]] std::string_view GetImageKey() const override;
    [[nodiscard]] std::string_view DatenTyp() const { return type.View(); }

    bool IsConst : 1 = false;
    bool isResult : 1 = false;        // stands for the result of its function or Property Get
    bool isFormInstance : 1 = false;  // the implicit variable of a form, which has the form's own address
    Name type;                        // data type as a key: lower case, as read from the source
    clsProzedur* Prozedur = nullptr;  // of arguments and locals
    clsType* MyType = nullptr;        // of a type's member
    clsEnum* MyEnum = nullptr;        // of an enum's member

private:
    [[no_unique_address]] Counted<&ObjectCounts::variable> counted_;
};

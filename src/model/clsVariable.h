// A variable, constant, argument, type member or enum member.
#pragma once

#include "model/code_object.h"

class clsVariable final : public CodeObject {
public:
    clsVariable() : CodeObject(ObjectClass::Variable) {}

    [[nodiscard]] std::string_view DatenTyp() const { return type.View(); }

    bool IsConst = false;
    bool isResult = false;        // represents the result of its function or Property Get
    bool isFormInstance = false;  // the default instance of a form; has the form's code path
    bool isRedim = false;         // declared by a ReDim, so it exists only if no array of this name is known
    // Of the arguments in a library:
    bool isOptional = false;
    bool isByRef = false;
    bool isParamArray = false;
    Name type;                        // data type as a key: lower case, as read from the source
    clsProzedur* Prozedur = nullptr;  // of arguments and locals
    clsType* MyType = nullptr;        // of a type's member
    clsEnum* MyEnum = nullptr;        // of an enum's member
};

#include "model/kind_of.h"

#include "model/clsModul.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"

namespace {

std::string_view KindOfVariable(const clsVariable& variable) {
    return variable.MyType                        ? "type member"
           : variable.MyEnum                      ? "enum member"
           : variable.Zugriff == Access::Argument ? "argument"
           : variable.Prozedur                    ? "local"
           : variable.IsConst                     ? "constant"
                                                  : "variable";
}

}  // namespace

std::string_view KindOf(const CodeObject& object) {
    switch (object.Class()) {
        case ObjectClass::Modul:
            return TextOf(static_cast<const clsModul&>(object).ModulTyp);
        case ObjectClass::Prozedur:
            return "procedure";
        case ObjectClass::Variable:
            return KindOfVariable(static_cast<const clsVariable&>(object));
        case ObjectClass::Type:
            return "type";
        case ObjectClass::Enum:
            return "enum";
        case ObjectClass::Control:
            return "control";
        case ObjectClass::TypeLib:
            return TextOf(static_cast<const clsTypeLib&>(object).LibTyp);
    }
    return {};
}

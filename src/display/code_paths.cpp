#include "display/code_paths.h"

#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"

namespace {

void Join(std::string& path, std::string_view part) {
    if (!path.empty() && !part.empty())
        path += '.';
    path += part;
}

std::string_view ModuleNameOf(const CodeObject& object) {
    return object.Modul ? object.Modul->MyName() : std::string_view();
}

std::string_view LowerSuffix(const clsProzedur& prozedur) {
    const std::string_view suffix = prozedur.AccessorSuffix();
    if (suffix.empty())
        return {};
    return suffix == " [Get]" ? " [get]" : suffix == " [Let]" ? " [let]" : " [set]";
}

void JoinVariable(std::string& path, const clsVariable& variable) {
    Join(path, ModuleNameOf(variable));
    if (variable.isFormInstance)
        return;
    if (variable.Prozedur)
        Join(path, variable.Prozedur->MyName());
    else if (variable.MyType || variable.MyEnum)
        Join(path, variable.MyType ? variable.MyType->MyName() : variable.MyEnum->MyName());
    else if (!variable.Modul)
        return;
    Join(path, variable.MyName());
}

bool BelongsToLibrary(const CodeObject& object) {
    if (object.myLibrary)
        return true;
    if (object.Class() != ObjectClass::Variable)
        return false;
    const auto& variable = static_cast<const clsVariable&>(object);
    return (variable.MyType && variable.MyType->myLibrary) || (variable.MyEnum && variable.MyEnum->myLibrary);
}

}  // namespace

std::string_view PathBuffer::Of(const CodeObject& object) {
    path_.clear();
    if (BelongsToLibrary(object))
        return path_ = object.CodePath();
    switch (object.Class()) {
        case ObjectClass::Modul:
        case ObjectClass::TypeLib:
            path_ = object.MyName();
            break;
        case ObjectClass::Variable:
            JoinVariable(path_, static_cast<const clsVariable&>(object));
            break;
        default:
            Join(path_, ModuleNameOf(object));
            Join(path_, object.MyName());
            break;
    }
    if (object.Class() == ObjectClass::Prozedur)
        path_ += LowerSuffix(static_cast<const clsProzedur&>(object));
    else if (object.Class() == ObjectClass::Type)
        path_ += " [type]";
    else if (object.Class() == ObjectClass::Enum)
        path_ += " [enum]";
    return path_;
}

#include "model/name_space.h"

#include <new>
#include <utility>

#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"

namespace {

// The module or library name that an object's path begins with.
Name HeadOf(const CodeObject& object) {
    if (object.myLibrary)
        return object.myLibrary->NameKey();
    return object.Modul ? object.Modul->NameKey() : object.NameKey();
}

// Whether two module names can begin the same path: they are equal, or one continues with a point where the other ends.
bool CanBeginOnePath(Name one, Name other) {
    if (one == other)
        return true;
    std::string_view shorter = one.View();
    std::string_view longer = other.View();
    if (shorter.size() > longer.size())
        std::swap(shorter, longer);
    return shorter.size() < longer.size() && longer[shorter.size()] == '.' && longer.starts_with(shorter);
}

// The parts of a path between the module and the name, and after the name.
struct PathRest {
    Name owner;
    std::string_view suffix;
    bool operator==(const PathRest&) const = default;
};

PathRest RestOf(const CodeObject& object) {
    switch (object.Class()) {
        case ObjectClass::Variable: {
            const auto& variable = static_cast<const clsVariable&>(object);
            const CodeObject* owner = variable.Prozedur ? static_cast<const CodeObject*>(variable.Prozedur)
                                      : variable.MyType ? variable.MyType
                                                        : static_cast<const CodeObject*>(variable.MyEnum);
            return {owner ? owner->NameKey() : Name(), {}};
        }
        case ObjectClass::Prozedur:
            return {Name(), static_cast<const clsProzedur&>(object).AccessorSuffix()};
        case ObjectClass::Type:
            return {Name(), " [Type]"};
        case ObjectClass::Enum:
            return {Name(), " [Enum]"};
        default:
            return {};
    }
}

// Whether two objects have the same path. A path begins with the name of its module, so objects of different modules
// differ in it, and a name that hundreds of modules share costs no more than any other.
bool SamePath(const CodeObject& one, const CodeObject& other) {
    if (&one == &other)
        return true;
    if (!CanBeginOnePath(HeadOf(one), HeadOf(other)))
        return false;
    if (one.Modul && one.Modul == other.Modul && !one.myLibrary && !other.myLibrary)
        return RestOf(one) == RestOf(other);  // only objects of the same name are compared
    return one.CodePath() == other.CodePath();
}

}  // namespace

bool clsSpaceName::Add(CodeObject& object) {
    if (!first_ && others_.empty()) {
        first_ = &object;
        return true;
    }
    for (const CodeObject* there : Objects())
        if (SamePath(*there, object))
            return false;
    if (others_.empty())
        others_.push_back(first_);
    others_.push_back(&object);
    return true;
}

void NameSpace::AddObject(Name name, CodeObject& object) {
    clsSpaceName* entry = Item(name);
    if (!entry) {
        entry = new (memory_->allocate(sizeof(clsSpaceName), alignof(clsSpaceName))) clsSpaceName(name, memory_);
        AddNew(name.Lower(), entry);
    }
    entry->Add(object);
}

// The common base of all code objects: a name, an address, an owner module, a mark.
//
// The address is the code path: components joined by ".". CodePathOrg keeps the spelling of the source, CodePath is its
// lower-case form and identifies the object in trees, collections and files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/clsCall.h"
#include "model/kinds.h"
#include "model/names.h"
#include "shell/vb_text.h"

class clsModul;
class clsProzedur;
class clsVariable;
class clsType;
class clsEnum;
class clsControl;
class clsTypeLib;

enum class ObjectClass : std::uint8_t { Modul, Prozedur, Variable, Type, Enum, Control, TypeLib };

class CodeObject {
public:
    CodeObject(const CodeObject&) = delete;
    CodeObject& operator=(const CodeObject&) = delete;

    [[nodiscard]] ObjectClass Class() const { return class_; }

    [[nodiscard]] std::string_view myNameOrg() const { return {spelling_, name_.View().size()}; }
    /// Lower-case form of myNameOrg.
    [[nodiscard]] std::string_view MyName() const { return name_.View(); }
    [[nodiscard]] Name NameKey() const { return name_; }
    void SetName(Name name) {
        name_ = name.Lower();
        spelling_ = name.View().data();
    }
    /// @param lower     the name in lower case
    /// @param spelling  the name in the text of the object's module
    void SetName(Name lower, const char* spelling) {
        name_ = lower;
        spelling_ = spelling;
    }
    void SetNameOf(const CodeObject& other) { SetName(other.name_, other.spelling_); }

    /// Computed on each call, so it follows a renamed owner.
    [[nodiscard]] std::string CodePathOrg() const { return Path(&CodeObject::myNameOrg); }
    [[nodiscard]] std::string CodePath() const { return Path(&CodeObject::MyName); }
    /// Bytes of its project as UTF-8.
    [[nodiscard]] std::string Utf8(std::string_view bytes) const;
    /// Key of the object in its module's collections: the name, and for an accessor its word after it. Paths of one
    /// class in one module differ in nothing else.
    [[nodiscard]] Name LocalKey() const;
    /// Key of the object's icon.
    [[nodiscard]] std::string_view GetImageKey() const;

    /// Calls that reach this object, certain and possible.
    [[nodiscard]] IncomingEdges CalledByAll() const;
    /// Uses of a type, enumeration, module or library; empty for all others.
    [[nodiscard]] IncomingEdges UsedByAll() const;
    [[nodiscard]] bool CanBeUsed() const {
        return class_ == ObjectClass::Type || class_ == ObjectClass::Enum || class_ == ObjectClass::Modul ||
               class_ == ObjectClass::TypeLib;
    }
    /// Number of the object among all objects of its project, from 0; valid for one generation.
    [[nodiscard]] std::uint32_t Number() const;

    clsModul* Modul = nullptr;        // null for modules and libraries
    clsTypeLib* myLibrary = nullptr;  // set when the object belongs to a library
    Pos DeclareStart = 0;
    Pos DeclareEnd = 0;
    std::uint32_t numberInModule = 0;  // among the objects of its module, or of its library; that itself is 0
    std::int16_t IsDeath = 0;          // 0 alive or not looked at, 1 dead, 2 undead
    Access Zugriff = Access::None;

protected:
    explicit CodeObject(ObjectClass objectClass) : class_(objectClass) {}
    ~CodeObject() = default;

private:
    using NameOf = std::string_view (CodeObject::*)() const;
    [[nodiscard]] std::string Path(NameOf nameOf) const;
    [[nodiscard]] const CallGraph* Graph() const;

    ObjectClass class_;
    Name name_;
    const char* spelling_ = "";
};

/// `first` "." `second`, without the point when one of them is empty.
[[nodiscard]] std::string JoinPath(std::string_view first, std::string_view second);

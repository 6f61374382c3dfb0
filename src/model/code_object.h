// What all code objects offer alike: a name, an address, an owner module, a mark.
//
// The address is the code path: components joined by ".". CodePathOrg keeps the spelling of the source,
// CodePath is its lower-case form and the key of the object everywhere.
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
    virtual ~CodeObject() = default;

    [[nodiscard]] ObjectClass Class() const { return class_; }

    [[nodiscard]] std::string_view myNameOrg() const { return {spelling_, name_.View().size()}; }
    /// Lower-case form of myNameOrg.
    [[nodiscard]] std::string_view MyName() const { return name_.View(); }
    [[nodiscard]] Name NameKey() const { return name_; }
    void SetName(Name name) {
        name_ = name.Lower();
        spelling_ = name.View().data();
    }
    /// The name in lower case, and where its spelling stands: in the text of the module that owns this object,
    /// which lives longer than the object.
    void SetName(Name lower, const char* spelling) {
        name_ = lower;
        spelling_ = spelling;
    }
    void SetNameOf(const CodeObject& other) { SetName(other.name_, other.spelling_); }

    /// Computed on each call: follows a renamed owner.
    [[nodiscard]] virtual std::string CodePathOrg() const = 0;
    [[nodiscard]] std::string CodePath() const;
    /// CodePath as a key.
    [[nodiscard]] Name CodePathKey() const;
    /// What tells this object's path from those of the other objects of its class in its module: the key of
    /// the module's own collections. Making it costs nothing, unlike a whole path.
    [[nodiscard]] virtual Name LocalKey() const { return NameKey(); }

    /// Key of the object's icon.
    [[nodiscard]] virtual std::string_view GetImageKey() const = 0;

    /// Calls that reach this object, certain and possible.
    [[nodiscard]] const IncomingEdges& CalledByAll() const { return calledBy_; }
    /// Uses of a type, enumeration, module or library; empty for all others.
    [[nodiscard]] const IncomingEdges& UsedByAll() const { return usedBy_; }
    [[nodiscard]] bool CanBeUsed() const {
        return class_ == ObjectClass::Type || class_ == ObjectClass::Enum || class_ == ObjectClass::Modul ||
               class_ == ObjectClass::TypeLib;
    }
    /// Where the edges of this object are entered.
    [[nodiscard]] IncomingEdges& Incoming(bool uses) { return uses ? usedBy_ : calledBy_; }

    // In an order that leaves no gaps: large projects have these by the hundred thousand.
    clsModul* Modul = nullptr;        // null for modules and libraries
    clsTypeLib* myLibrary = nullptr;  // set when the object belongs to a library
    Access Zugriff = Access::None;
    Pos DeclareStart = 0;

private:
    Name name_;
    const char* spelling_ = "";
    [[no_unique_address]] IncomingEdges calledBy_, usedBy_;

public:
    Pos DeclareEnd = 0;
    std::int16_t IsDeath = 0;  // 0 alive or not looked at, 1 dead, 2 undead

protected:
    explicit CodeObject(ObjectClass objectClass) : class_(objectClass) {}

private:
    ObjectClass class_;
};

/// `first` "." `second`, without the point when one of them is empty.
[[nodiscard]] std::string JoinPath(std::string_view first, std::string_view second);

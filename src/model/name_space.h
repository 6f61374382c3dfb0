// A name space answers which code objects bear a given bare name. There is a public one for the project and
// a private one for each module and library. Look-ups go through the objects in the order of their entry.
#pragma once

#include <deque>
#include <span>
#include <string_view>
#include <vector>

#include "model/clsCollection.h"
#include "model/code_object.h"

/// One entry: a lower-case bare name and all objects that bear it, in the order of their entry, each code path
/// once. Most names have one bearer, so paths are only made when a second comes.
class clsSpaceName {
public:
    explicit clsSpaceName(Name name) : name_(name.Lower()) {}
    [[nodiscard]] std::string_view MyName() const { return name_.View(); }
    [[nodiscard]] std::span<CodeObject* const> Objects() const {
        return others_.empty() ? std::span<CodeObject* const>(&first_, first_ ? 1 : 0)
                               : std::span<CodeObject* const>(others_);
    }
    /// False when an object of the same path stands there already.
    bool Add(CodeObject& object);
    void Remove(const CodeObject& object);

private:
    Name name_;
    CodeObject* first_ = nullptr;
    std::vector<CodeObject*> others_;  // all objects, once there is more than one
};

/// Bare names to their entries. It owns the entries, never the objects.
class NameSpace : public clsCollection<clsSpaceName> {
public:
    enum class Extent { Module, Program };
    /// The one of the whole program is kept with the names themselves, so that a look-up there costs nothing.
    explicit NameSpace(Extent extent = Extent::Module) : extent_(extent) {}

    /// Who bears a name, or null.
    [[nodiscard]] clsSpaceName* Bearers(Name name) const {
        return extent_ == Extent::Program ? name.Lower().Bearers() : Item(name);
    }
    /// Enters `object` under its name. An object of the same code path that stands there already stays,
    /// and nothing happens.
    void AddObject(CodeObject& object);
    /// Takes the object of this code path out; its entry stays, even when it has become empty.
    void RemoveObject(const CodeObject& object);
    /// Forgets all entries.
    void ClearAll();

private:
    std::deque<clsSpaceName> entries_;
    Extent extent_;
};

/// The project-wide name space.
extern NameSpace gPublicNameSpace;

namespace modMain {
void AddTo_NameSpace(CodeObject& object);
}

// A name space says which code objects have a given bare name. A project has a public one, a module a private one.
// Look-ups go through the objects in the order of their entry.
#pragma once

#include <memory_resource>
#include <span>
#include <string_view>
#include <vector>

#include "model/clsCollection.h"
#include "model/code_object.h"

/// One entry: a lower-case bare name and all objects that have it, in the order of their entry, each code path once.
/// Most names have one object, so paths are only made when a second comes.
class clsSpaceName {
public:
    clsSpaceName(Name name, std::pmr::memory_resource* memory) : name_(name.Lower()), others_(memory) {}
    [[nodiscard]] std::string_view MyName() const { return name_.View(); }
    [[nodiscard]] std::span<CodeObject* const> Objects() const {
        return others_.empty() ? std::span<CodeObject* const>(&first_, first_ ? 1 : 0)
                               : std::span<CodeObject* const>(others_);
    }
    /// Returns false when an object of the same path is there already.
    bool Add(CodeObject& object);

private:
    Name name_;
    CodeObject* first_ = nullptr;
    std::pmr::vector<CodeObject*> others_;  // all objects, once there is more than one
};

/// Bare names to their entries.
class NameSpace : public clsCollection<clsSpaceName> {
public:
    /// @param memory  where the entries live, which are never destroyed
    explicit NameSpace(std::pmr::memory_resource* memory) : clsCollection(memory), memory_(memory) {}

    /// Enters `object` under its name. An object of the same code path that is there already stays, and nothing
    /// happens.
    void AddObject(CodeObject& object);

private:
    std::pmr::memory_resource* memory_;
};

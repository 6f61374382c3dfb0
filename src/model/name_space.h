// A name space maps a bare name to the code objects of that name, in the order of their entry. A project has a public
// one, a module a private one.
#pragma once

#include <memory_resource>
#include <span>
#include <string_view>
#include <vector>

#include "model/clsCollection.h"
#include "model/code_object.h"

/// One entry: a lower-case bare name and all its objects in the order of their entry, each code path once. Most names
/// have one object, so paths are only compared from the second object on.
class clsSpaceName {
public:
    clsSpaceName(Name name, std::pmr::memory_resource* memory) : name_(name.Lower()), others_(memory) {}
    [[nodiscard]] std::string_view MyName() const { return name_.View(); }
    [[nodiscard]] Name NameKey() const { return name_; }
    [[nodiscard]] std::span<CodeObject* const> Objects() const {
        return others_.empty() ? std::span<CodeObject* const>(&first_, first_ ? 1 : 0)
                               : std::span<CodeObject* const>(others_);
    }
    /// Returns false if there is an object of the same path.
    bool Add(CodeObject& object);

private:
    Name name_;
    CodeObject* first_ = nullptr;
    std::pmr::vector<CodeObject*> others_;  // all objects, once there is more than one
};

/// Bare names to their entries.
class NameSpace : public clsCollection<clsSpaceName> {
public:
    /// @param memory  where the entries live; their destructors never run
    explicit NameSpace(std::pmr::memory_resource* memory) : clsCollection(memory), memory_(memory) {}

    /// Enters `object` under its name, unless there is an object of the same code path.
    void AddObject(CodeObject& object) { AddObject(object.NameKey(), object); }
    /// The same under another name that it has.
    void AddObject(Name name, CodeObject& object);

private:
    std::pmr::memory_resource* memory_;
};

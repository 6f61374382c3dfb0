#include "model/name_space.h"

#include <algorithm>

NameSpace gPublicNameSpace;

bool clsSpaceName::Add(CodeObject& object) {
    if (!first_ && others_.empty()) {
        first_ = &object;
        return true;
    }
    const std::string path = object.CodePath();
    for (const CodeObject* there : Objects())
        if (there == &object || there->CodePath() == path)
            return false;
    if (others_.empty())
        others_.push_back(first_);
    others_.push_back(&object);
    return true;
}

void clsSpaceName::Remove(const CodeObject& object) {
    const std::string path = object.CodePath();
    const auto isIt = [&](const CodeObject* there) { return there->CodePath() == path; };
    if (others_.empty()) {
        if (first_ && isIt(first_))
            first_ = nullptr;
        return;
    }
    others_.erase(std::remove_if(others_.begin(), others_.end(), isIt), others_.end());
    if (others_.empty())
        first_ = nullptr;
}

void NameSpace::AddObject(CodeObject& object) {
    const Name name = object.NameKey();
    clsSpaceName* entry = Item(name);
    if (!entry) {
        entry = &entries_.emplace_back(name);
        Add(name, entry);
    }
    entry->Add(object);
}

void NameSpace::RemoveObject(const CodeObject& object) {
    if (clsSpaceName* entry = Item(object.NameKey()))
        entry->Remove(object);
}

void NameSpace::ClearAll() {
    Clear();
    entries_.clear();
}

void modMain::AddTo_NameSpace(CodeObject& object) {
    gPublicNameSpace.AddObject(object);
}

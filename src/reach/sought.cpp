#include "reach/sought.h"

#include <bit>

#include "calls/keywords.h"
#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsType.h"

namespace {

constexpr std::size_t kLongestName = 255;  // in Visual Basic

}  // namespace

Sought::Sought(const Names& names, const std::vector<const CodeObject*>& objects)
    : names_(names), heads_(std::bit_ceil(objects.size() * 2 + 1)) {
    entries_.reserve(objects.size());
    for (const CodeObject* object : objects)
        if (const std::string_view name = WithoutBrackets(object->MyName()); !name.empty())
            Add(*object, name);
}

void Sought::Add(const CodeObject& object, std::string_view name) {
    const std::uint32_t hash = Name::HashOf(name);
    const auto place = static_cast<std::uint32_t>(entries_.size() + 1);
    entries_.push_back({&object, name, hash, 0, place});
    AddLength(lengths_, entries_.back());
    const bool inBrackets = name.size() < object.MyName().size();
    if (KeywordOf(inBrackets ? names_.Find(name) : object.NameKey()) != Keyword::None)
        keywords_.push_back(entries_.back());
    const std::size_t slot = SlotOf(hash, [name](const Entry& entry) { return entry.name == name; });
    if (heads_[slot] == 0) {
        heads_[slot] = place;
        shapes_.set(ShapeOf(name));
        hashes_.set(hash >> (32 - kBits));
        return;
    }
    Entry& head = entries_[heads_[slot] - 1];
    entries_[head.last - 1].next = place;
    head.last = place;
}

const CodeObject& Sought::OwnerOf(const CodeObject& object) {
    if (object.Class() == ObjectClass::Variable) {
        const auto& variable = static_cast<const clsVariable&>(object);
        if (variable.MyType)
            return *variable.MyType;
        if (variable.MyEnum)
            return *variable.MyEnum;
    }
    return *object.Modul;
}

const Sought::Entry* Sought::FirstOfWord(std::string_view word) const {
    if (word.empty() || word.size() > kLongestName)
        return nullptr;
    char lower[kLongestName];
    names_.Page().LowerCase(word, lower);
    const std::string_view name(lower, word.size());
    return AtSlot(SlotOf(Name::HashOf(name), [name](const Entry& entry) { return entry.name == name; }));
}

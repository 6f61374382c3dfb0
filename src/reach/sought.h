// Objects that are looked for in the code by their names.
#pragma once

#include <algorithm>
#include <bitset>
#include <cstdint>
#include <string_view>
#include <vector>

#include "model/code_object.h"
#include "model/passed_words.h"
#include "shell/vb_text.h"

/// Each name has one chain of objects, in the order in which they were given. A table of lengths and letters passes by
/// nearly all words that are none of the names.
class Sought {
public:
    Sought(const Names& names, const std::vector<const CodeObject*>& objects);

    struct Entry {
        const CodeObject* object;
        std::string_view name;  // in lower case, without brackets
        std::uint32_t hash;
        std::uint32_t next;  // of the same name: place from 1, or 0
        std::uint32_t last;  // of the first one of a name: the end of its chain
    };
    /// The first object of a name in any spelling; null for none.
    [[nodiscard]] const Entry* First(std::string_view word) const {
        return shapes_.test(ShapeOf(WithoutBrackets(word))) ? FirstOfWord(WithoutBrackets(word)) : nullptr;
    }
    /// The next object of the same name; null after the last.
    [[nodiscard]] const Entry* Next(const Entry& entry) const {
        return entry.next == 0 ? nullptr : &entries_[entry.next - 1];
    }
    /// Whether an object may have a name of this hash.
    [[nodiscard]] bool MayBeName(std::uint32_t hash) const { return hashes_.test(hash >> (32 - kBits)); }
    /// Those whose names are keywords.
    [[nodiscard]] const std::vector<Entry>& Keywords() const { return keywords_; }

    /// Lengths of words; the last one is for all that are longer.
    using Lengths = std::bitset<64>;
    [[nodiscard]] static std::size_t LengthOf(Pos length) {
        return std::min<std::size_t>(static_cast<std::size_t>(length), 63);
    }
    /// Adds those that the name has with and without brackets.
    static void AddLength(Lengths& lengths, const Entry& entry) {
        const auto length = static_cast<Pos>(entry.name.size());
        lengths.set(LengthOf(length));
        lengths.set(LengthOf(length + 2));
    }
    [[nodiscard]] const Lengths& AllLengths() const { return lengths_; }

    /// The type or enumeration of a member, the module of all others: what is before a point.
    [[nodiscard]] static const CodeObject& OwnerOf(const CodeObject& object);

private:
    static std::string_view WithoutBrackets(std::string_view name) { return PassedWords::WithoutBrackets(name); }
    // The same for a name in any spelling: letters beyond ASCII are left out, as their lower case depends on the page.
    static std::size_t ShapeOf(std::string_view word) {
        if (word.empty())
            return 0;
        const auto letter = [word](std::size_t at) {
            const auto c = static_cast<unsigned char>(word[at]);
            return c < 0x80 ? c | 0x20U : 0U;
        };
        std::uint64_t shape = word.size();
        for (const std::size_t at : {std::size_t{0}, word.size() / 3, word.size() / 2, word.size() - 1})
            shape = shape << 8 | letter(at);
        return static_cast<std::size_t>((shape * 0x9E3779B97F4A7C15U) >> (64 - kBits));
    }
    void Add(const CodeObject& object, std::string_view name);
    [[nodiscard]] const Entry* FirstOfWord(std::string_view word) const;
    // The slot of the first name of which `isIt` says so, or the empty one where the search ends.
    template <class IsIt>
    [[nodiscard]] std::size_t SlotOf(std::uint32_t hash, const IsIt& isIt) const {
        const std::size_t mask = heads_.size() - 1;
        std::size_t slot = hash & mask;
        while (heads_[slot] != 0 && !(entries_[heads_[slot] - 1].hash == hash && isIt(entries_[heads_[slot] - 1])))
            slot = (slot + 1) & mask;
        return slot;
    }
    [[nodiscard]] const Entry* AtSlot(std::size_t slot) const {
        return heads_[slot] == 0 ? nullptr : &entries_[heads_[slot] - 1];
    }

    static constexpr unsigned kBits = 17;
    const Names& names_;
    std::vector<Entry> entries_;
    std::vector<std::uint32_t> heads_;  // by hash: place of the first entry of a name from 1, or 0
    std::vector<Entry> keywords_;
    Lengths lengths_;
    std::bitset<std::size_t{1} << kBits> shapes_;
    std::bitset<std::size_t{1} << kBits> hashes_;
};

// A cache of what the words of a module's text mean. Few words make up most of a text, and looking each one up in the
// tables of the whole project costs more than the rest of the walk.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "calls/keywords.h"
#include "model/clsModul.h"
#include "model/name_space.h"

class ModuleNames;
class clsProjekt;

/// A word of the text.
class WordMeaning {
public:
    Name name;  // not Known() when no object has it and it is no keyword
    Keyword keyword = Keyword::None;
    bool isNumber = false;

private:
    friend class ModuleNames;
    bool everywhereKnown_ = false;
    std::uint32_t passedStamp_ = 0;  // of the module in which the word was last passed by, not after a point
    std::uint32_t ownStamp_ = 0;     // of the module that own_ was looked up in
    const clsSpaceName* own_ = nullptr;
    const clsSpaceName* everywhere_ = nullptr;
};

/// Valid as long as no name and no name space changes.
class ModuleNames {
public:
    explicit ModuleNames(const clsProjekt& projekt);

    /// Switches to a module and enters its own names at once: most of them occur in its text, and entering them needs
    /// no search.
    void TurnTo(const clsModul& modul);
    /// Enters a name, in lower case, whose word is about to occur.
    void Expect(Name name) { (void)LineFor(name); }
    /// The meaning of a non-empty word; valid until the next call.
    [[nodiscard]] WordMeaning& Of(std::string_view word) {
        const Key key = KeyOf(word);
        Line& line = LineOf(key);
        if (line.head != key.head || line.tail != key.tail || line.length != word.size() ||
            (word.size() > kKeyLength && !IsSameLong(line, word))) [[unlikely]]
            Fill(line, key, word);
        return line.meaning;
    }
    /// The objects of this name in the module; null when there is none.
    [[nodiscard]] const clsSpaceName* Own(WordMeaning& meaning) const {
        if (meaning.ownStamp_ != stamp_) {
            meaning.ownStamp_ = stamp_;
            meaning.own_ = meaning.name.Known() ? modul_->PrivNameSpace.Item(meaning.name) : nullptr;
        }
        return meaning.own_;
    }
    /// The public objects of this name; null when there is none.
    [[nodiscard]] const clsSpaceName* Everywhere(WordMeaning& meaning) const {
        if (!meaning.everywhereKnown_) {
            meaning.everywhereKnown_ = true;
            meaning.everywhere_ = meaning.name.Known() ? public_.Item(meaning.name) : nullptr;
        }
        return meaning.everywhere_;
    }
    /// The objects of a name in the name space of any module; null when there is none.
    [[nodiscard]] const clsSpaceName* In(const NameSpace& nameSpace, Name name) {
        if (!name.Known())
            return nullptr;
        Look& look = tables_->looks[(name.Hash() ^ reinterpret_cast<std::uintptr_t>(&nameSpace) / 64) % kLooks];
        if (look.nameSpace != &nameSpace || look.name != name) [[unlikely]]
            look = {&nameSpace, name, nameSpace.Item(name)};
        return look.found;
    }
    /// The public ones.
    [[nodiscard]] const clsSpaceName* InPublic(Name name) { return In(public_, name); }
    /// Whether the word is noted as one that leads nowhere.
    [[nodiscard]] bool IsPassed(const WordMeaning& meaning) const { return meaning.passedStamp_ == stamp_; }
    /// Notes it.
    void PassBy(WordMeaning& meaning, std::string_view word, int token) {
        meaning.passedStamp_ = stamp_;
        passed_.words.push_back({PassedWords::HashOf(word), token});
    }
    /// Notes a word after a point that leads nowhere.
    void PassMemberBy(const WordMeaning& meaning, std::string_view word, int token) {
        if (meaning.name.Known())
            passed_.members.push_back({PassedWords::HashOf(word), token});
    }
    /// The words noted since the walk turned to the module; see clsModul::passedWords.
    [[nodiscard]] const PassedWords& Passed() const { return passed_; }
    /// The pool of the project.
    [[nodiscard]] const Names& Pool() const { return pool_; }

private:
    static constexpr int kBits = 11;
    static constexpr std::size_t kLooks = 1024;
    static constexpr std::size_t kKeyLength = 16;
    // The first and the last eight bytes, which identify words of up to sixteen.
    struct Key {
        std::uint64_t head;
        std::uint64_t tail;
    };
    struct alignas(64) Line {  // as long as a cache line
        std::uint64_t head = 0;
        std::uint64_t tail = 0;
        std::size_t length = 0;
        WordMeaning meaning;
    };
    struct Look {
        const NameSpace* nameSpace = nullptr;
        Name name;
        const clsSpaceName* found = nullptr;
    };
    struct Tables {
        std::array<Line, std::size_t{1} << kBits> words;
        std::array<Look, kLooks> looks;
    };

    template <class T>
    static T At(const char* from) {
        T value;
        std::memcpy(&value, from, sizeof value);
        return value;
    }
    static Key KeyOf(std::string_view word) {
        const char* const from = word.data();
        const std::size_t size = word.size();
        if (size >= 8)
            return {At<std::uint64_t>(from), At<std::uint64_t>(from + size - 8)};
        if (size >= 4)
            return {At<std::uint32_t>(from), At<std::uint32_t>(from + size - 4)};
        if (size == 0)
            return {0, 0};
        const auto byte = [from](std::size_t i) { return std::uint64_t{static_cast<unsigned char>(from[i])}; };
        return {byte(0) << 16 | byte(size / 2) << 8 | byte(size - 1), size};
    }
    // Long words that name no object are not cached.
    static bool IsSameLong(const Line& line, std::string_view word) {
        return line.meaning.name.Known() && line.meaning.name.View() == word;
    }
    [[nodiscard]] Line& LineOf(const Key& key) {
        return tables_->words[(key.head * 0x9E3779B97F4A7C15U ^ key.tail * 0xD6E8FEB86659FD93U) >> (64 - kBits)];
    }
    Line* LineFor(Name name);
    static void Enter(Line& line, Key key, Name name);
    void Fill(Line& line, Key key, std::string_view word) const;

    const Names& pool_;
    const NameSpace& public_;
    const clsModul* modul_ = nullptr;
    std::uint32_t stamp_ = 0;
    PassedWords passed_;
    std::unique_ptr<Tables> tables_;
};

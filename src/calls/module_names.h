// What the words of a module's text mean, remembered as the walk over it meets them: few words make up most of a text,
// and looking each up in tables of the whole project costs more than all else of the walk.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "calls/keywords.h"
#include "model/clsModul.h"
#include "model/name_space.h"

class ModuleNames;

/// A word as it stands in the text.
class WordMeaning {
public:
    Name name;  // not Known() when no object bears it and it is no keyword
    Keyword keyword = Keyword::None;
    bool isNumber = false;

private:
    friend class ModuleNames;
    std::uint32_t ownStamp_ = 0;  // of the module that own_ was looked up in
    const clsSpaceName* own_ = nullptr;
};

/// Good as long as no name and no name space changes.
class ModuleNames {
public:
    ModuleNames() : tables_(std::make_unique<Tables>()) {}
    ModuleNames(const ModuleNames&) = delete;
    ModuleNames& operator=(const ModuleNames&) = delete;

    /// Turns to a module. Its own names are remembered at once: most of them will come, and together they are found
    /// sooner than one by one.
    void TurnTo(const clsModul& modul);
    /// Remembers a name whose word will come soon.
    void Expect(Name name) { (void)LineFor(name); }
    /// The meaning of a word that is not empty; good until the next call.
    [[nodiscard]] WordMeaning& Of(std::string_view word) {
        const Key key = KeyOf(word);
        Line& line = LineOf(key);
        if (line.head != key.head || line.tail != key.tail || line.length != word.size() ||
            (word.size() > kKeyLength && !IsSameLong(line, word))) [[unlikely]]
            Fill(line, key, word);
        return line.meaning;
    }
    /// The bearers of a word in the module and the public ones; null when there is none.
    [[nodiscard]] const clsSpaceName* Own(WordMeaning& meaning) const {
        if (meaning.ownStamp_ != stamp_) {
            meaning.ownStamp_ = stamp_;
            meaning.own_ = meaning.name.Known() ? modul_->PrivNameSpace.Item(meaning.name) : nullptr;
        }
        return meaning.own_;
    }
    [[nodiscard]] static const clsSpaceName* Everywhere(const WordMeaning& meaning) {
        return meaning.name.Known() ? gPublicNameSpace.Bearers(meaning.name) : nullptr;
    }
    /// The bearers of a name in the name space of any module; null when there is none.
    [[nodiscard]] const clsSpaceName* Bearers(const NameSpace& nameSpace, Name name) {
        if (!name.Known())
            return nullptr;
        Look& look = tables_->looks[(name.Hash() ^ reinterpret_cast<std::uintptr_t>(&nameSpace) / 64) % kLooks];
        if (look.nameSpace != &nameSpace || look.name != name) [[unlikely]]
            look = {&nameSpace, name, nameSpace.Item(name)};
        return look.bearers;
    }

private:
    static constexpr int kBits = 11;
    static constexpr std::size_t kLooks = 1024;
    static constexpr std::size_t kKeyLength = 16;
    // The first and the last eight bytes, which tell words of up to sixteen.
    struct Key {
        std::uint64_t head;
        std::uint64_t tail;
    };
    // As long as a cache line.
    struct alignas(64) Line {
        std::uint64_t head = 0;
        std::uint64_t tail = 0;
        std::size_t length = 0;
        WordMeaning meaning;
    };
    struct Look {
        const NameSpace* nameSpace = nullptr;
        Name name;
        const clsSpaceName* bearers = nullptr;
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
    // Long words that nothing bears are not remembered.
    static bool IsSameLong(const Line& line, std::string_view word) {
        return line.meaning.name.Known() && line.meaning.name.View() == word;
    }
    [[nodiscard]] Line& LineOf(const Key& key) {
        return tables_->words[(key.head * 0x9E3779B97F4A7C15U ^ key.tail * 0xD6E8FEB86659FD93U) >> (64 - kBits)];
    }
    Line* LineFor(Name name);
    static void Enter(Line& line, Key key, std::size_t length, Name name);
    static void Fill(Line& line, Key key, std::string_view word);

    const clsModul* modul_ = nullptr;
    std::uint32_t stamp_ = 0;
    std::unique_ptr<Tables> tables_;
};

// A module's text, its character map, and the logical lines in it.
// Positions are 1-based character numbers, valid in both spellings; 0 means there is none.
//
// A logical line is one or more physical lines: a line end goes on when the two characters before its CR LF
// are a blank and an underscore.
#pragma once

#include <cstdint>
#include <memory>
#include <memory_resource>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/code_page.h"
#include "shell/vb_text.h"

/// What a position is, as bits of one byte.
enum CharFlag : std::uint8_t {
    IsString = 1,    // in a string literal, its quotes included
    IsComment = 2,   // in a comment, its "'" or "rem" included
    NotCompile = 4,  // left out by conditional compilation, or in an Attribute line
};

class ModuleText {
public:
    /// `text` as the file layer hands it out, with CR LF at every line end.
    /// @param page  decides what lower case is; must outlive the text
    /// @param memory  where the text lives; it outlives this object
    explicit ModuleText(std::string_view text, const CodePage& page = CodePage::Auto(),
                        std::pmr::memory_resource* memory = std::pmr::get_default_resource());

    /// As found in the file.
    [[nodiscard]] std::string_view ModulTextOrg() const { return original_; }
    /// In lower case, of the same length. Built when it is first asked for; the view lasts until
    /// ReleaseModulText.
    [[nodiscard]] std::string_view ModulText() const {
        if (!lower_)
            BuildLower();
        return {lower_.get(), original_.size()};
    }
    /// Frees the lower-case text, and the map if it has a source; both are made again on demand.
    void ReleaseModulText();
    /// What fills a blank map in as it was when the module was read.
    using MapSource = void (*)(ModuleText& text);
    void SetMapSource(MapSource source) { mapSource_ = source; }

    [[nodiscard]] Pos CharCount() const { return Len(original_); }

    // The map. A position outside 0 .. CharCount throws VbError 9.
    [[nodiscard]] bool PosIsString(Pos pos) const { return (FlagsAt(pos) & IsString) != 0; }
    [[nodiscard]] bool PosNotCode(Pos pos) const { return FlagsAt(pos) != 0; }
    [[nodiscard]] std::uint8_t FlagsAt(Pos pos) const {
        if (pos < 0 || pos > CharCount()) [[unlikely]]
            ThrowSubscriptOutOfRange();
        return Map()[static_cast<std::size_t>(pos)];
    }
    /// Sets `flag` from `first` through `last`; what lies outside the text is left out.
    void Mark(Pos first, Pos last, CharFlag flag);
    /// Marks a stretch as left out by the compiler, and remembers it for the map's source.
    void Hide(Pos first, Pos last);
    /// All stretches hidden so far, as first and last position.
    [[nodiscard]] const std::pmr::vector<std::pair<Pos, Pos>>& Hidden() const { return hidden_; }
    /// Marks all stretches hidden so far.
    void HideAgain();
    /// The whole map, entry 0 unused. For passes over every character.
    [[nodiscard]] std::uint8_t* MapForPass() { return const_cast<std::uint8_t*>(Map()); }

    /// Position of the CR that ends the logical line around `pos`.
    /// Returns 0 when no further line end follows, as in a last line without CR LF.
    [[nodiscard]] Pos Get_VBZeilenEnde(Pos pos) const { return LineEnd(ModulText(), pos); }
    /// First character of the logical line around `pos`; 0 when the text begins with a continuation, and for positions
    /// below 1.
    [[nodiscard]] Pos Get_VBZeilenBeginn_Safe(Pos pos) const;

    /// The logical line around `pos`. All three are set one by one: when the line has no end, that is
    /// reported, `length` is negative and `text` keeps its former value. Returns false then.
    /// A line break at the very start of the text (positions 1 and 2) is reported on the way.
    bool Get_VBZeile_Nach_Pos(Pos pos, Pos& start, Pos& length, std::string_view& text) const;
    /// The same from the original spelling.
    bool Get_VBZeile_Nach_Pos_Org(Pos pos, Pos& start, Pos& length, std::string_view& text) const;

    /// From `start` up to `ende`, which is exclusive. Throws VbError 5 for a negative stretch.
    [[nodiscard]] std::string_view Get_String(Pos start, Pos ende) const {
        return Mid(ModulText(), start, ende - start);
    }
    [[nodiscard]] std::string_view Get_StringOrg(Pos start, Pos ende) const {
        return Mid(original_, start, ende - start);
    }

private:
    void BuildLower() const;
    [[nodiscard]] const std::uint8_t* Map() const {
        if (map_.empty()) [[unlikely]]
            BuildMap();
        return map_.data();
    }
    void BuildMap() const;
    [[nodiscard]] static Pos LineEnd(std::string_view text, Pos pos);
    [[nodiscard]] Pos LineBegin(std::string_view text, Pos pos, bool safe) const;
    bool Line(std::string_view from, std::string_view tag, Pos pos, Pos& start, Pos& length,
              std::string_view& text) const;

    std::pmr::string original_;
    const CodePage* page_;
    mutable std::unique_ptr<char[]> lower_;  // ends with a NUL
    mutable std::vector<std::uint8_t> map_;
    std::pmr::vector<std::pair<Pos, Pos>> hidden_;
    MapSource mapSource_ = nullptr;
};

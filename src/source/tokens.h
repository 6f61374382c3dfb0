// The tokens of a module: where each word, sign or literal is and which statement it belongs to. A token
// keeps no text of its own, so the table is good for both spellings of the module's text.
#pragma once

#include <cstdint>
#include <memory_resource>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shell/vb_text.h"

struct Token {
    Pos pos = 0;          // first character, 1-based
    Pos len = 0;          // characters
    int statementNr = 0;  // counts from 1
    bool operator==(const Token&) const = default;
};

/// Numbered from 1. Number 0 and numbers after the last stand for no token: position and length 0, and no
/// statement that a real token could belong to.
class TokenTable {
public:
    [[nodiscard]] int Count() const { return static_cast<int>(count_); }
    [[nodiscard]] Pos PosOf(int nr) const { return Inside(nr) ? packed_[static_cast<std::size_t>(nr)].pos : 0; }
    [[nodiscard]] Pos LenOf(int nr) const {
        return Inside(nr) ? static_cast<Pos>(packed_[static_cast<std::size_t>(nr)].lenAndStart >> 1) : 0;
    }
    /// Position after the token.
    [[nodiscard]] Pos EndOf(int nr) const { return PosOf(nr) + LenOf(nr); }
    /// Whether the token is the first of its statement; true for numbers that stand for no token.
    [[nodiscard]] bool StartsStatement(int nr) const {
        return !Inside(nr) || (packed_[static_cast<std::size_t>(nr)].lenAndStart & 1) != 0;
    }
    /// Whether `nr` belongs to the statement of the token before it.
    [[nodiscard]] bool ContinuesStatement(int nr) const { return !StartsStatement(nr); }
    /// Last token of the statement that `nr` belongs to.
    [[nodiscard]] int LastOfStatement(int nr) const {
        while (ContinuesStatement(nr + 1))
            ++nr;
        return nr;
    }
    /// The token's text out of `text`; empty for numbers that stand for no token.
    [[nodiscard]] std::string_view Text(std::string_view text, int nr) const {
        if (!Inside(nr))
            return {};
        const Packed& token = packed_[static_cast<std::size_t>(nr)];
        return {text.data() + token.pos - 1, token.lenAndStart >> 1};
    }
    /// All tokens with their statement numbers, for display.
    [[nodiscard]] std::vector<Token> All() const;

    struct Packed {
        Pos pos;
        std::uint32_t lenAndStart;  // the length, and in the lowest bit whether a statement starts here
    };
    /// @param memory  where the tokens live; it outlives the table
    explicit TokenTable(std::pmr::memory_resource* memory = std::pmr::get_default_resource())
        : packed_(memory), landmarks_(memory), nameLiterals_(memory) {}
    /// Takes copies of the tokens made so far, the first of which is no token, and of the numbers.
    TokenTable(std::span<const Packed> packed, std::span<const int> landmarks, std::span<const int> nameLiterals,
               std::pmr::memory_resource* memory)
        : packed_(packed.begin(), packed.end(), memory),
          count_(static_cast<unsigned>(packed.size()) - 1),
          landmarks_(landmarks.begin(), landmarks.end(), memory),
          nameLiterals_(nameLiterals.begin(), nameLiterals.end(), memory) {}

    /// Numbers of all tokens that are "dim", "const", "static", "redim" or "end", rising: what the reader of a
    /// procedure's body looks for among all the others.
    [[nodiscard]] std::span<const int> Landmarks() const { return landmarks_; }
    /// Numbers of all tokens that are a string literal with a name in it and nothing else, rising. A few others may be
    /// among them.
    [[nodiscard]] std::span<const int> NameLiterals() const { return nameLiterals_; }

private:
    [[nodiscard]] bool Inside(int nr) const { return static_cast<unsigned>(nr) - 1 < count_; }
    std::pmr::vector<Packed> packed_;
    unsigned count_ = 0;
    std::pmr::vector<int> landmarks_;
    std::pmr::vector<int> nameLiterals_;
};

class ModuleText;

/// Cuts the text into tokens, once, from its first character. Closing quotes get the NotCompile flag and odd
/// comments their comment flag on the way, so a second run over the same map would give other tokens.
/// A pending token at the end of the text, without a line end after it, is left out.
/// @param memory  where the tokens live
[[nodiscard]] TokenTable Analyse_Parsen(ModuleText& text,
                                        std::pmr::memory_resource* memory = std::pmr::get_default_resource());
/// Frees what this thread keeps from one text for the next.
void ReleaseTokeniserArrays();

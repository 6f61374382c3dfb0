// The shared working state of the readers of a module's structure during one pass.
#pragma once

#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "source/module_text.h"
#include "source/tokens.h"

/// Whether a word is exactly this literal. Asked for every token, so it is two plain comparisons.
template <std::size_t size>
[[nodiscard]] inline bool Is(std::string_view word, const char (&literal)[size]) {
    return word.size() == size - 1 && std::memcmp(word.data(), literal, size - 1) == 0;
}

class ModuleReader {
public:
    /// The module must have its text and its tokens.
    explicit ModuleReader(clsModul& modul_)
        : modul(modul_),
          names(modul_.TheNames()),
          tokens(*modul_.tokens),
          lower(modul_.text->ModulText()),
          original(modul_.text->ModulTextOrg()) {}

    clsModul& modul;
    Names& names;
    const TokenTable& tokens;
    std::string_view lower;
    std::string_view original;
    /// True while procedures are read, false while declarations are.
    bool inProcedures = false;

    /// Text of a token in lower case; empty where there is no such token.
    [[nodiscard]] std::string_view Word(int tokNr) const { return tokens.Text(lower, tokNr); }
    /// Names `object` as the source spells it at a token.
    void NameIt(CodeObject& object, int tokNr) const {
        object.SetName(names.Intern(Word(tokNr)), tokens.Text(original, tokNr).data());
    }
    [[nodiscard]] bool Exists(int tokNr) const { return tokNr >= 1 && tokNr <= tokens.Count(); }
};

/// Sets the kind of a procedure by the word before its name, and the accessor's word for a property.
void ProzedurTyp_AusWort(Names& names, clsProzedur& prozedur, std::string_view word, std::string_view accessor = {});

/// The data type that a type sign stands for, or an empty text.
[[nodiscard]] std::string_view DatenTyp_AusZeichen(std::string_view sign);

/// "private" or "public" for the access word of a declaration.
inline constexpr std::string_view kPrivate = "private";
inline constexpr std::string_view kPublic = "public";

/// Concatenates the words of a data type and makes a name of them once they are complete.
class TypeText {
public:
    void Append(std::string_view word) {
        if (text_.empty() && single_.empty()) {
            single_ = word;
            return;
        }
        if (text_.empty())
            text_ = single_;
        text_.append(word);
    }
    void Set(std::string_view word) {
        text_.clear();
        single_ = word;
    }
    [[nodiscard]] bool Empty() const { return text_.empty() && single_.empty(); }
    [[nodiscard]] Name AsName(Names& names) const {
        return names.Intern(text_.empty() ? single_ : std::string_view(text_));
    }

private:
    std::string_view single_;  // the first word; nearly all types have only one, which needs no copy
    std::string text_;
};

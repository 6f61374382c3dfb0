// One pass over the tokens of each module, side by side. Nearly all tokens are passed over by their length and first
// character, and those that remain are compared in the original text, so that no lower-case text is made.
#include "reach/code_marks.h"

#include "model/clsModul.h"
#include "model/clsProjekt.h"
#include "platform/ascii.h"
#include "shell/work_ahead.h"

namespace {

constexpr std::size_t kLongestName = 255;  // in Visual Basic
constexpr Pos kShortest = 3;               // a literal of one letter

class MarkReader {
public:
    MarkReader(const Names& names, const clsModul& modul)
        : names_(names), tokens_(*modul.tokens), text_(modul.text->ModulTextOrg()) {
        found_.modul = &modul;
    }

    CodeMarks Read(int first) {
        for (int nr = first; nr <= tokens_.Count(); ++nr) {
            // Half of all tokens are signs, and no look at the text is needed to pass them by.
            if (tokens_.LenOf(nr) < kShortest)
                continue;
            const std::string_view word = Word(nr);
            if (word.front() == '"')
                Literal(nr, word);
            else if (IsWord(word, "addressof"))
                AddressOf(nr);
            else if (IsWord(word, "implements") && tokens_.StartsStatement(nr))
                Add(found_.implements, tokens_.LastOfStatement(nr));
            else if (IsWord(word, "withevents"))
                Add(found_.withEvents, nr + 1);
        }
        return std::move(found_);
    }

private:
    [[nodiscard]] std::string_view Word(int nr) const { return tokens_.Text(text_, nr); }
    template <std::size_t size>
    [[nodiscard]] static bool IsWord(std::string_view word, const char (&lower)[size]) {
        return word.size() == size - 1 && ascii::Lower(word.front()) == lower[0] && ascii::SameText(word, lower);
    }

    [[nodiscard]] Name NameOf(std::string_view word) const {
        char lower[kLongestName];
        if (word.size() > sizeof lower)
            return names_.Find({});
        names_.Page().LowerCase(word, lower);
        return names_.Find({lower, word.size()});
    }
    void Add(std::vector<NamePlace>& places, int nr) const {
        if (const std::string_view word = Word(nr); !word.empty())
            if (const Name name = NameOf(word); name.Known())
                places.push_back({name, tokens_.PosOf(nr)});
    }

    // `AddressOf Procedure` or `AddressOf Module.Procedure`.
    void AddressOf(int nr) {
        const bool isQualified = tokens_.ContinuesStatement(nr + 3) && Word(nr + 2) == ".";
        if (tokens_.ContinuesStatement(nr + 1))
            Add(found_.addressOf, isQualified ? nr + 3 : nr + 1);
    }

    void Literal(int nr, std::string_view word) {
        if (word.size() < 3 || word.back() != '"' || IsOfDeclare(nr))
            return;
        word = word.substr(1, word.size() - 2);
        if (!MayBeName(word))
            return;
        if (const Name name = NameOf(word); name.Known())
            found_.strings.push_back({name, tokens_.PosOf(nr)});
    }
    // The file and the alias of a Declare statement.
    [[nodiscard]] bool IsOfDeclare(int nr) const {
        const std::string_view before = Word(nr - 1);
        return IsWord(before, "lib") || IsWord(before, "alias");
    }
    [[nodiscard]] static bool MayBeName(std::string_view text) {
        const auto isLetter = [](char c) {
            const char lower = ascii::Lower(c);
            return (lower >= 'a' && lower <= 'z') || static_cast<unsigned char>(c) >= 0x80;
        };
        if (text.size() > kLongestName || !isLetter(text.front()))
            return false;
        return std::ranges::all_of(text, [&](char c) { return isLetter(c) || ascii::IsDigit(c) || c == '_'; });
    }

    const Names& names_;
    const TokenTable& tokens_;
    std::string_view text_;
    CodeMarks found_;
};

}  // namespace

std::vector<CodeMarks> MarksInCode(const clsProjekt& projekt) {
    std::vector<const clsModul*> modules;
    for (const clsModul* modul : projekt.AllModules())
        if (modul->text && modul->tokens)
            modules.push_back(modul);
    WorkAhead<CodeMarks> scans(modules.size(), [&](std::size_t nr, std::size_t) {
        return MarkReader(projekt.TheNames(), *modules[nr]).Read(std::max(modules[nr]->TokNrBeginnVarBereich, 1));
    });
    std::vector<CodeMarks> all;
    for (std::size_t nr = 0; nr < modules.size(); ++nr) {
        CodeMarks found = scans.Next();
        if (!found.addressOf.empty() || !found.strings.empty() || !found.implements.empty() ||
            !found.withEvents.empty())
            all.push_back(std::move(found));
    }
    return all;
}

// Literals were noted when the text was cut into tokens, and words in procedures when their calls were looked for; only
// declarations are read again. Words are compared in the original text, so that no lower-case text is made.
#include "reach/code_marks.h"

#include "model/clsModul.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "platform/ascii.h"
#include "reach/side_by_side.h"

namespace {

constexpr std::size_t kLongestName = 255;  // in Visual Basic

class MarkReader {
public:
    MarkReader(const Names& names, const clsModul& modul)
        : names_(names), modul_(modul), tokens_(*modul.tokens), text_(modul.text->ModulTextOrg()) {
        found_.modul = &modul;
    }

    CodeMarks Read() {
        const int first = std::max(modul_.TokNrBeginnVarBereich, 1);
        for (const int nr : tokens_.NameLiterals())
            if (nr >= first)
                Literal(nr, Word(nr));
        // The walk for calls passes the three words by, and has noted them if they are in a procedure.
        int next = first;
        if (!HasWordInProcedures())
            for (const clsProzedur* prozedur : modul_.MyProcs)
                if (prozedur->DeclareStartTNr > 0) {
                    Words(next, prozedur->DeclareStartTNr - 1);
                    next = std::max(next, prozedur->DeclareEndTNr);
                }
        Words(next, tokens_.Count());
        return std::move(found_);
    }

private:
    [[nodiscard]] std::string_view Word(int nr) const { return tokens_.Text(text_, nr); }
    [[nodiscard]] bool HasWordInProcedures() const {
        static const std::uint32_t kHashes[] = {PassedWords::HashOf("addressof"), PassedWords::HashOf("implements"),
                                                PassedWords::HashOf("withevents")};
        return std::ranges::any_of(modul_.passedWords.words, [](const PassedWords::Place& place) {
            return std::ranges::find(kHashes, place.hash) != std::end(kHashes);
        });
    }
    void Words(int first, int last) {
        for (int nr = first; nr <= last; ++nr) {
            // Nearly all tokens are passed by without a look at the text.
            const Pos length = tokens_.LenOf(nr);
            if (length != 9 && length != 10)
                continue;
            const std::string_view word = Word(nr);
            if (IsWord(word, "addressof"))
                AddressOf(nr);
            else if (IsWord(word, "implements") && tokens_.StartsStatement(nr))
                Add(found_.implements, tokens_.LastOfStatement(nr));
            else if (IsWord(word, "withevents"))
                Add(found_.withEvents, nr + 1);
        }
    }
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
    const clsModul& modul_;
    const TokenTable& tokens_;
    std::string_view text_;
    CodeMarks found_;
};

}  // namespace

std::vector<CodeMarks> MarksInCode(const clsProjekt& projekt) {
    std::vector<CodeMarks> all = OfEachModule<CodeMarks>(
        projekt, [&projekt](const clsModul& modul) { return MarkReader(projekt.TheNames(), modul).Read(); });
    std::erase_if(all, [](const CodeMarks& found) {
        return found.addressOf.empty() && found.strings.empty() && found.implements.empty() && found.withEvents.empty();
    });
    return all;
}

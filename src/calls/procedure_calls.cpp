// One pass from left to right decides for each token what a name refers to. Expressions are not parsed: a few states
// per statement replace a grammar, so the result is only as accurate as their rules. Member chains are kept per bracket
// depth, so that `a(b.c).d` continues with `a` after the bracket. The look-ahead that distinguishes calls from
// assignments is cached per statement, so a long statement takes linear time.
#include "calls/procedure_calls.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

#include "calls/edges.h"
#include "calls/keywords.h"
#include "calls/may_be.h"
#include "calls/module_names.h"
#include "calls/resolve.h"
#include "calls/type_clause.h"
#include "model/clsControl.h"
#include "model/clsProjekt.h"
#include "structure/module_reader.h"

namespace {

// The member chain reached at one bracket depth.
struct Level {
    CodeObject* chain = nullptr;
    bool afterDot = false;  // the last token at this depth was "."
};

// Levels by depth. Few statements nest deeply; in source with unbalanced brackets the depth can be below 0.
class Levels {
public:
    void Reset() {
        for (int depth = 0; depth <= deepest_; ++depth)
            near_[static_cast<std::size_t>(depth)] = {};
        deepest_ = 0;
        if (!far_.empty())
            far_.clear();
    }
    Level& At(int depth) {
        if (static_cast<unsigned>(depth) >= near_.size()) [[unlikely]]
            return far_[depth];
        deepest_ = std::max(deepest_, depth);
        return near_[static_cast<std::size_t>(depth)];
    }

private:
    std::array<Level, 8> near_;
    int deepest_ = 0;
    std::unordered_map<int, Level> far_;
};

class ProcedureCalls {
public:
    ProcedureCalls(const clsProjekt& projekt, ModuleReader& reader, ModuleNames& names, clsProzedur& prozedur,
                   FoundCalls& found)
        : reader_(reader),
          tokens_(reader.tokens),
          projekt_(projekt),
          names_(names),
          proc_(prozedur),
          found_(found),
          clause_(found, reader.modul, prozedur, names),
          last_(prozedur.DeclareEndTNr - 1) {}

    void Run() {
        bool newStatement = true;
        for (int nr = proc_.DeclareStartTNr; nr <= last_; ++nr) {
            newStatement |= tokens_.StartsStatement(nr);
            const std::string_view word = reader_.Word(nr);
            if (word.starts_with(gQuote))
                continue;
            if (newStatement) {
                ResetStatement();
                newStatement = false;
            }
            const int token = nr;
            Keyword keyword = Keyword::None;
            if (word.size() != 1 || !Sign(nr, word[0])) {
                WordMeaning& meaning = names_.Of(word);
                keyword = meaning.keyword;
                if (!meaning.isNumber)
                    Token(nr, word, meaning);
            }
            if (withHeader_)
                withObject_ = levels_.At(depth_).chain;
            prev2Nr_ = prevNr_;
            prev2Keyword_ = prevKeyword_;
            prevNr_ = token;
            prevKeyword_ = keyword;
        }
    }

private:
    void ResetStatement() {
        depth_ = 0;
        levels_.Reset();
        mode_ = AccessMode::Call;
        rightSide_ = afterAssign_ = setStatement_ = withHeader_ = false;
        clause_.End();
        lookUntil_ = 0;
    }

    [[nodiscard]] Level& Here() { return levels_.At(depth_); }

    void BeginValue() {
        Here().afterDot = false;
        mode_ = AccessMode::Read;
        rightSide_ = true;
    }

    // Handles any token except a one-character sign or a number.
    void Token(int& nr, std::string_view word, WordMeaning& meaning) {
        if (word.size() == 2 && (Is(word, ":=") || Is(word, "<=") || Is(word, ">="))) {
            BeginValue();
            return;
        }
        const Keyword keyword = meaning.keyword;
        switch (keyword) {
            case Keyword::As:
            case Keyword::New:
                Types(nr, keyword);
                return;
            case Keyword::If:
            case Keyword::ElseIf:
            case Keyword::While:
            case Keyword::Until:
            case Keyword::Case:
            case Keyword::For:
                rightSide_ = true;
                mode_ = AccessMode::Read;
                Here().afterDot = false;
                return;
            case Keyword::With:
                With();
                return;
            case Keyword::Then:
                mode_ = AccessMode::Call;
                rightSide_ = false;
                Here().afterDot = false;
                return;
            default:
                break;
        }
        const bool dotFollows = tokens_.ContinuesStatement(nr + 1) && Is(reader_.Word(nr + 1), ".");
        if (IsNoName(keyword) && !dotFollows) {
            if (keyword == Keyword::Set) {
                mode_ = AccessMode::Set;
                setStatement_ = true;
            } else if (keyword == Keyword::Open || keyword == Keyword::Get) {
                rightSide_ = true;
            }
            if (Here().afterDot)
                names_.PassMemberBy(meaning, reader_.Word(nr), nr);
            Here().afterDot = false;
            return;
        }
        if (keyword == Keyword::Print)
            rightSide_ = true;
        NameAt(nr, meaning);
    }

    // Returns false if the character is not a sign.
    bool Sign(int nr, char sign) {
        switch (sign) {
            case '=':
                if (depth_ == 0 && !rightSide_) {
                    mode_ = AccessMode::Read;
                    afterAssign_ = rightSide_ = true;
                }
                Here().afterDot = false;
                return true;
            case ',':
                Here().afterDot = false;
                if (depth_ == 0)
                    mode_ = AccessMode::Read;
                return true;
            case '.':
                Here().afterDot = true;
                if (depth_ == 0 && !rightSide_ && !afterAssign_)
                    mode_ = AccessMode::Call;
                return true;
            case '&':
                if (CharAt(reader_.lower, tokens_.PosOf(nr) - 1) == ' ')
                    mode_ = AccessMode::Read;
                return true;
            case '$':
            case '%':
            case '!':
            case '#':
            case '@':
                return true;
            case '+':
            case '-':
            case '*':
            case '/':
            case ':':
            case '<':
            case '>':
                BeginValue();
                return true;
            case '(':
                ++depth_;
                Here().afterDot = false;
                mode_ = AccessMode::Read;
                return true;
            case ')':
                --depth_;
                return true;
            default:
                return false;
        }
    }

    void With() {
        if (prevKeyword_ == Keyword::End) {
            withObject_ = nullptr;
            withActive_ = false;
        } else {
            withHeader_ = rightSide_ = withActive_ = true;
            mode_ = AccessMode::Read;
        }
        Here().afterDot = false;
    }

    // Reads the rest of the statement after "as" or "new" and leaves `nr` on the last token read.
    void Types(int& nr, Keyword keyword) {
        if (keyword == Keyword::As)
            clause_.Begin(depth_);
        else
            clause_.SetDepth(depth_);
        int undecided = 0;  // a word that is the name of an argument or a local if "as" follows
        while (nr < last_ && tokens_.ContinuesStatement(nr + 1)) {
            const std::string_view word = reader_.Word(++nr);
            if (const int before = std::exchange(undecided, 0); before != 0 && !Is(word, "as"))
                PassBy(before, names_.Of(reader_.Word(before)));
            if (Is(word, "#"))
                return;
            if (Is(word, "(")) {
                ++depth_;
            } else if (Is(word, ")")) {
                --depth_;
            } else if (Is(word, ",")) {
                if (depth_ == clause_.Depth())
                    clause_.End();
            } else if (Is(word, "as")) {
                clause_.Begin(depth_);
            } else if (!Is(word, "new") && !Is(word, ".")) {
                if (clause_.Active() && depth_ == clause_.Depth()) {
                    WordMeaning& meaning = names_.Of(word);
                    clause_.Part(meaning.name, tokens_.PosOf(nr));
                    PassBy(nr, meaning);
                } else if (MayBeName(word)) {
                    undecided = nr;
                }
            }
        }
        if (undecided != 0)
            PassBy(undecided, names_.Of(reader_.Word(undecided)));
    }
    // Notes a word of a type clause without an edge.
    void PassBy(int nr, WordMeaning& meaning) {
        if (meaning.isNumber || found_.EndsAt(tokens_.PosOf(nr)))
            return;
        if (Is(reader_.Word(nr - 1), "."))
            names_.PassMemberBy(meaning, reader_.Word(nr), nr);
        else if (!Local(meaning))
            PassFreeNameBy(nr, meaning);
    }
    void PassFreeNameBy(int nr, WordMeaning& meaning) {
        if (!names_.IsPassed(meaning) && !(tokens_.ContinuesStatement(nr + 1) && Is(reader_.Word(nr + 1), ":=")))
            names_.PassBy(meaning, reader_.Word(nr), nr);
    }
    [[nodiscard]] static bool MayBeName(std::string_view word) {
        // From "[" on there are the letters in lower case, the sign itself, and all beyond ASCII.
        return static_cast<unsigned char>(word.front()) >= '[';
    }

    void NameAt(int nr, WordMeaning& meaning) {
        if (!afterAssign_ && !rightSide_ && depth_ == 0)
            DecideMode(nr);
        if (rightSide_)
            mode_ = AccessMode::Read;
        Level& here = Here();
        const bool afterDot = here.afterDot;
        if (afterDot)
            here.chain = Member(nr, meaning, here);
        else
            here.chain = FreeName(meaning);
        here.afterDot = false;
        if (!afterDot && isLocal_)
            return;
        if (here.chain)
            Edge(nr, *here.chain, !afterDot);
        const Pos pos = tokens_.PosOf(nr);
        if (afterDot) {
            if (!found_.EndsAt(pos))
                names_.PassMemberBy(meaning, reader_.Word(nr), nr);
        } else if (!found_.EndsAt(pos) && pos != proc_.NamePos) {
            PassFreeNameBy(nr, meaning);
        }
    }

    [[nodiscard]] clsVariable* Local(const WordMeaning& meaning) const {
        return meaning.name.Known() ? proc_.MyVars.Item(meaning.name) : nullptr;
    }

    CodeObject* FreeName(WordMeaning& meaning) {
        clsVariable* const local = Local(meaning);
        isLocal_ = local != nullptr;
        return local ? local : modMain::Get_Objekt_AusName(names_, meaning, mode_);
    }

    // Resolves a word after a point. If that fails, all members that it may refer to get possible calls.
    CodeObject* Member(int nr, WordMeaning& meaning, const Level& here) {
        CodeObject* parent = here.chain;
        if (withActive_) {
            const bool opensStatement = !tokens_.ContinuesStatement(nr) || !tokens_.ContinuesStatement(nr - 1);
            if (opensStatement)
                return modMain::Get_Child(projekt_, withObject_, meaning.name, mode_, names_);
            if (OpensWithMember()) {
                mode_ = AccessMode::Read;
                parent = withObject_;
            } else if (CharAt(reader_.lower, tokens_.PosOf(nr - 1) - 1) == ' ') {
                parent = withObject_;
            }
        }
        // Without a chain there is no member to look up; the search for possible calls still finds candidates.
        CodeObject* member = parent ? modMain::Get_Child(projekt_, parent, meaning.name, mode_, names_) : nullptr;
        if (!member)
            Analyse_SetMayBeCalls(found_, proc_, names_, meaning, mode_, tokens_.PosOf(nr));
        return member;
    }

    // True if the token before the point can have no member, so that the point refers to the With object.
    [[nodiscard]] bool OpensWithMember() const {
        switch (prev2Keyword_) {
            case Keyword::And:
            case Keyword::Or:
            case Keyword::Xor:
            case Keyword::If:
            case Keyword::ElseIf:
            case Keyword::Case:
            case Keyword::Load:
            case Keyword::Unload:
            case Keyword::Not:
                return true;
            default:
                break;
        }
        const std::string_view before = reader_.Word(prev2Nr_);
        if (before == "<=" || before == ">=")
            return true;
        return before.size() == 1 && std::string_view("=+-*/&<>").find(before[0]) != std::string_view::npos;
    }

    void SetAssignmentMode() { mode_ = setStatement_ ? AccessMode::Set : AccessMode::Assign; }

    void DecideMode(int nr) {
        const bool hasNext = tokens_.ContinuesStatement(nr + 1);
        const std::string_view next = hasNext ? reader_.Word(nr + 1) : std::string_view();
        const bool afterCall = prevKeyword_ == Keyword::Call && InOneStatement(prevNr_, nr);
        if (!afterCall) {
            if (Is(next, "=")) {
                SetAssignmentMode();
                return;
            }
            if (CharAt(reader_.lower, tokens_.EndOf(nr)) == ' ') {
                mode_ = AccessMode::Call;
                return;
            }
        }
        LookAhead(nr);
    }

    // True if no statement begins after `first` up to and including `second`.
    [[nodiscard]] bool InOneStatement(int first, int second) const {
        for (int nr = first + 1; nr <= second; ++nr)
            if (tokens_.StartsStatement(nr))
                return false;
        return true;
    }

    enum class Found { Nothing, Word, Assignment, Comma, CommaAndBlank };

    // Searches at the depth of the statement for an "=", a "," or a word that ends the search.
    void LookAhead(int nr) {
        if (nr >= lookUntil_) {
            ahead_ = Found::Nothing;
            int depth = 0;
            int at = nr + 1;
            for (; tokens_.ContinuesStatement(at) && ahead_ == Found::Nothing; ++at) {
                const std::string_view word = reader_.Word(at);
                if (Is(word, "("))
                    ++depth;
                else if (Is(word, ")"))
                    --depth;
                else if (Is(word, "to") || Is(word, "then") || Is(word, "while") || Is(word, "until") ||
                         (depth == 0 && Is(word, ".")))
                    ahead_ = Found::Word;
                else if (depth == 0 && Is(word, "="))
                    ahead_ = Found::Assignment;
                else if (Is(word, ":="))
                    break;
                else if (depth == 0 && Is(word, ","))
                    ahead_ = CharAt(reader_.lower, tokens_.EndOf(at)) == ' ' ? Found::CommaAndBlank : Found::Comma;
            }
            lookUntil_ = ahead_ == Found::Nothing ? at : at - 1;
        }
        switch (ahead_) {
            case Found::Nothing:
            case Found::Comma:
                break;
            case Found::Word:
                mode_ = AccessMode::Read;
                break;
            case Found::Assignment:
                SetAssignmentMode();
                break;
            case Found::CommaAndBlank:
                mode_ = AccessMode::Call;
                rightSide_ = true;
                break;
        }
    }

    void Edge(int nr, CodeObject& object, bool isFreeName) {
        const Pos pos = tokens_.PosOf(nr);
        if (pos <= proc_.ArgListStart)
            return;
        switch (object.Class()) {
            case ObjectClass::Variable:
                if (object.DeclareStart == pos)
                    return;
                break;
            case ObjectClass::Prozedur:
                if (static_cast<clsProzedur&>(object).NamePos == pos)
                    return;
                break;
            case ObjectClass::Control:
                break;
            case ObjectClass::Modul:
                if (!isFreeName)
                    return;
                break;
            default:
                return;
        }
        found_.CallCreate(object, proc_, CallType::Really, pos);
    }

    ModuleReader& reader_;
    const TokenTable& tokens_;
    const clsProjekt& projekt_;
    ModuleNames& names_;
    clsProzedur& proc_;
    FoundCalls& found_;
    TypeClause clause_;
    int last_;

    // The last two tokens that are not literals.
    int prevNr_ = 0;
    int prev2Nr_ = 0;
    Keyword prevKeyword_ = Keyword::None;
    Keyword prev2Keyword_ = Keyword::None;
    CodeObject* withObject_ = nullptr;
    bool withActive_ = false;

    // State of the current statement:
    int depth_ = 0;
    Levels levels_;
    AccessMode mode_ = AccessMode::Call;
    bool rightSide_ = false;
    bool afterAssign_ = false;
    bool setStatement_ = false;
    bool withHeader_ = false;
    bool isLocal_ = false;
    Found ahead_ = Found::Nothing;  // result of the last look-ahead, valid up to token lookUntil_
    int lookUntil_ = 0;
};

}  // namespace

void Analyse_CallsProc(const clsProjekt& projekt, ModuleReader& reader, ModuleNames& names, clsProzedur& prozedur,
                       FoundCalls& found) {
    if (prozedur.DeclareStartTNr > 0)
        ProcedureCalls(projekt, reader, names, prozedur, found).Run();
}

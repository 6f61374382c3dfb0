// One pass over the characters. What has been read of the word at hand is the running text; only its length and
// its first letters are kept, for the tests on "is there one" and "rem". A word, the inside of a literal, a run of
// blanks and a hidden stretch have loops of their own, which do what the general step would do for each character.
#include <array>
#include <cstdint>

#include "source/module_text.h"
#include "structure/tokens.h"

namespace {

enum class Kind : std::uint8_t { Word, Other, Sign, Colon, Apostrophe, Quote, Blank, Bracket, Operator };

constexpr std::array<Kind, 256> MakeKinds() {
    std::array<Kind, 256> kinds{};
    const auto set = [&kinds](std::string_view characters, Kind kind) {
        for (const char c : characters)
            kinds[static_cast<unsigned char>(c)] = kind;
    };
    kinds.fill(Kind::Word);
    set("_\r\n", Kind::Other);
    set("$%!#@&", Kind::Sign);
    set(":", Kind::Colon);
    set("'", Kind::Apostrophe);
    set("\"", Kind::Quote);
    set(" ", Kind::Blank);
    set("(),.", Kind::Bracket);
    set("+-*/=", Kind::Operator);
    return kinds;
}

constexpr std::array<Kind, 256> kKinds = MakeKinds();

constexpr bool IsDigit(int c) { return c >= '0' && c <= '9'; }

// The one caller of each of these is the loop over the characters.
#define ALWAYS_INLINE [[gnu::always_inline]] inline

class Tokeniser {
public:
    explicit Tokeniser(ModuleText& text)
        : text_(text.ModulText().data()), count_(text.CharCount()), map_(text.MapForPass()) {
        // Real sources have a token for every five to seven characters.
        table_.Reserve(static_cast<std::size_t>(count_) / 5 + 16);
    }

    TokenTable Run() {
        for (Pos i = 1; i <= count_; ++i) {
            p2_ = p1_;
            p1_ = c_;
            if (map_[i] & (IsComment | NotCompile)) {
                i = SkipHidden(i);
                continue;
            }
            c_ = At(i);
            bool endOfStatement = false;
            if (c_ == '\r')
                endOfStatement = !(p1_ == '_' && p2_ == ' ');
            else if (c_ == ':' && !inComment_ && !inString_)
                endOfStatement = At(i + 1) == ' ';
            if (endOfStatement)
                awaitResume_ = true;
            if (scanning_)
                i = Step(i, endOfStatement);
            if (inComment_)
                map_[i] |= IsComment;
            if (inString_)
                map_[i] |= IsString;
            if (awaitResume_) {
                scanning_ = c_ == '\n' || c_ == ' ';
                awaitResume_ = !scanning_;
            }
            if (endOfStatement) {
                tokensInStatement_ = false;
                inComment_ = inString_ = scanning_ = false;
            }
        }
        table_.ShrinkToFit();
        return std::move(table_);
    }

private:
    // The character at a position, or -1 behind the text.
    [[nodiscard]] int At(Pos pos) const { return pos <= count_ ? static_cast<unsigned char>(text_[pos - 1]) : -1; }

    // Last position of the hidden stretch that begins at `i`. Only the two characters before move on there.
    Pos SkipHidden(Pos i) {
        const Pos first = i;
        while (i < count_ && (map_[i + 1] & (IsComment | NotCompile)))
            ++i;
        if (i > first) {
            p2_ = i > first + 1 ? c_ : p1_;
            p1_ = c_;
        }
        return i;
    }

    ALWAYS_INLINE void Emit(Pos i) {
        if (i <= tokStart_)
            return;
        table_.Add(tokStart_, i - tokStart_, !tokensInStatement_);
        tokensInStatement_ = true;
    }
    ALWAYS_INLINE void EmitPending(Pos i) {
        if (length_ > 0)
            Emit(i);
    }
    ALWAYS_INLINE void Empty() {
        length_ = 0;
        letters_ = 0;
    }
    ALWAYS_INLINE void Append(int c) {
        if (length_ < 4)
            letters_ = letters_ << 8 | static_cast<unsigned>(c);
        ++length_;
    }
    ALWAYS_INLINE void StartWith(Pos i, int c) {
        tokStart_ = i;
        Empty();
        Append(c);
    }
    [[nodiscard]] bool IsRem() const { return length_ == 3 && letters_ == ('r' << 16 | 'e' << 8 | 'm'); }

    // Handles the character at `i`; returns the last position that was dealt with.
    ALWAYS_INLINE Pos Step(Pos i, bool endOfStatement) {
        const bool inText = inComment_ || inString_;
        switch (kKinds[static_cast<unsigned char>(c_)]) {
            case Kind::Sign:
                if (inText) {
                    Append(c_);
                } else if (p1_ != ' ' && p1_ != '\n') {
                    // The running text stays, so that the sign becomes a token of its own later.
                    EmitPending(i);
                    tokStart_ = i;
                } else {
                    StartWith(i, c_);
                }
                break;
            case Kind::Colon:
                if (inText) {
                    Append(c_);
                } else {
                    Emit(i);  // also what lies there without a running text
                    if (awaitResume_) {
                        tokStart_ = i + 2;
                        Empty();
                    } else {
                        StartWith(i, c_);
                    }
                }
                break;
            case Kind::Apostrophe:
                if (inText)
                    Append(c_);
                else
                    inComment_ = true;
                break;
            case Kind::Quote:
                return Quote(i);
            case Kind::Blank:
                Blank(i, inText);
                if (!inText && !inComment_)
                    return SkipBlanks(i);
                break;
            case Kind::Bracket:
                if (inText || (c_ == '.' && IsDigit(At(i + 1)))) {
                    Append(c_);
                    if (!inText && length_ == 1)
                        tokStart_ = i;
                } else {
                    EmitPending(i);
                    StartWith(i, c_);
                }
                break;
            case Kind::Operator:
                if (inText || (c_ == '=' && (p1_ == ':' || p1_ == '<' || p1_ == '>'))) {
                    Append(c_);
                } else {
                    EmitPending(i);
                    StartWith(i, c_);
                }
                break;
            case Kind::Other:
            case Kind::Word:
                return Other(i, endOfStatement, inText);
        }
        return i;
    }

    Pos Quote(Pos i) {
        if (inComment_) {
            Append(c_);
        } else if (!inString_) {
            // Right behind a closing quote it is a doubled one: what came before it is lost, on purpose.
            if (p1_ == '"')
                map_[i - 1] |= IsString;
            else if (p1_ != ' ')
                EmitPending(i);
            inString_ = true;
            StartWith(i, c_);
            return SkipLiteral(i);
        } else {
            map_[i] |= IsString | NotCompile;
            inString_ = false;
            Append(c_);
        }
        return i;
    }

    ALWAYS_INLINE void Blank(Pos i, bool inText) {
        if (inText) {
            Append(c_);
        } else if (p1_ != ' ' && length_ > 0) {
            if (IsRem()) {
                inComment_ = true;
                for (Pos back = i; back > i - 4 && back >= 1; --back)
                    map_[back] |= IsComment;
            } else {
                Emit(i);
                Empty();
            }
        }
    }

    ALWAYS_INLINE Pos Other(Pos i, bool endOfStatement, bool inText) {
        if (endOfStatement) {
            EmitPending(i);
            Empty();
        } else if (!inText && c_ != '\r' && c_ != '\n' && !(c_ == '_' && p1_ == ' ') && length_ > 0 && Flushes()) {
            Emit(i);
            Empty();
        }
        if (c_ == '\r' || c_ == '\n') {
            Empty();
            return i;
        }
        Append(c_);
        if (length_ == 1)
            tokStart_ = i;
        return inText ? i : SkipWord(i);
    }

    // Whether the character before makes the pending text a token before a plain character is appended.
    [[nodiscard]] bool Flushes() const {
        switch (p1_) {
            case '-': case '(': case ')': case ' ': case '=': case '#':
                return true;
            case '.':
                return !IsDigit(c_);
            default:
                return false;
        }
    }

    // Plain word characters behind one at `i` are appended, nothing else happens to them.
    ALWAYS_INLINE Pos SkipWord(Pos i) {
        const Pos first = i;
        while (i < count_ && kKinds[static_cast<unsigned char>(text_[i])] == Kind::Word && map_[i + 1] <= IsString) {
            ++i;
            if (length_ < 4)
                letters_ = letters_ << 8 | static_cast<unsigned char>(text_[i - 1]);
            ++length_;
        }
        MovedOn(first, i);
        return i;
    }

    ALWAYS_INLINE Pos SkipBlanks(Pos i) {
        const Pos first = i;
        while (i < count_ && text_[i] == ' ' && map_[i + 1] <= IsString)
            ++i;
        MovedOn(first, i);
        return i;
    }

    // The inside of a literal up to the character before its closing quote or line end.
    Pos SkipLiteral(Pos i) {
        const Pos first = i;
        while (i < count_ && text_[i] != '"' && text_[i] != '\r' && text_[i] != '\n' &&
               map_[i + 1] <= IsString) {
            ++i;
            map_[i] |= IsString;
        }
        map_[first] |= IsString;
        length_ += i - first;
        if (i > first)
            letters_ = 0;
        MovedOn(first, i);
        return i;
    }

    // The loops above end on a character that the general step has not seen: its neighbours are set here.
    ALWAYS_INLINE void MovedOn(Pos first, Pos last) {
        if (last == first)
            return;
        p2_ = last > first + 1 ? At(last - 2) : p1_;
        p1_ = At(last - 1);
        c_ = At(last);
    }

    const char* text_;
    Pos count_;
    std::uint8_t* map_;
    TokenTable table_;
    int c_ = -1;   // the character at hand and the two before it; -1 before the first
    int p1_ = -1;
    int p2_ = -1;
    Pos tokStart_ = 1;
    int length_ = 0;            // of the running text
    unsigned letters_ = 0;      // its first letters
    bool inComment_ = false;
    bool inString_ = false;
    bool scanning_ = true;
    bool awaitResume_ = false;
    bool tokensInStatement_ = false;
};

}  // namespace

TokenTable Analyse_Parsen(ModuleText& text) {
    return Tokeniser(text).Run();
}

std::vector<Token> TokenTable::All() const {
    std::vector<Token> all;
    int statementNr = 0;
    for (int nr = 1; nr <= Count(); ++nr) {
        statementNr += StartsStatement(nr);
        all.push_back({PosOf(nr), LenOf(nr), statementNr});
    }
    return all;
}

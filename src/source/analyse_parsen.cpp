// One pass over the characters. The word being read ("running text") is represented by its start and a flag that says
// whether there is one. Step handles any character. Most characters do not need it: words, blanks, literals, hidden
// ranges and line ends are read at once where the result is the same. The end of a word is looked up in an array of
// stops, which a loop without branches fills beforehand.
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "platform/vector_code.h"
#include "source/module_text.h"
#include "source/tokens.h"

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
constexpr std::uint8_t kHidden = IsComment | NotCompile;
constexpr std::uint8_t kSpecial = 0x80;

// Inlines everything that the quick steps call into their loop.
#define ALWAYS_INLINE [[gnu::always_inline]] inline

// Eight bytes at once, for runs of equal bytes.
ALWAYS_INLINE std::uint64_t Eight(const std::uint8_t* at) {
    std::uint64_t eight;
    std::memcpy(&eight, at, sizeof eight);
    return eight;
}

constexpr std::uint64_t Repeat(std::uint64_t byte) {
    return byte * 0x0101010101010101U;
}

constexpr bool IsDigit(int c) {
    return c >= '0' && c <= '9';
}

// Fills `stops` for the positions 1 to `count`; the first one and eight positions after the last are always stops. A
// position is a stop if its character is special, is a "_" after a blank, or is hidden. The stop of a hidden character
// also holds its flags.
WIDE_VECTORS void FindStops(const unsigned char* text, const std::uint8_t* map, Pos count, std::uint8_t* stops) {
    using Many [[gnu::vector_size(32)]] = unsigned char;
    constexpr Pos kMany = sizeof(Many);
    Many c, before, flags;
    stops[1] = static_cast<std::uint8_t>(kSpecial | (count > 0 ? map[1] & kHidden : 0));
    Pos i = 2;
    for (; i + kMany - 1 <= count; i += kMany) {
        std::memcpy(&c, text + i, sizeof c);
        std::memcpy(&before, text + i - 1, sizeof before);
        std::memcpy(&flags, map + i, sizeof flags);
        // The first term covers: blank ! " # $ % & ' ( ) * + , - . /
        const auto special = ((c & 0xF0) == 0x20) | (c == ':') | (c == '=') | (c == '@') | (c == '\r') | (c == '\n') |
                             ((c == '_') & (before == ' '));
        const Many found = ((Many)special & kSpecial) | (flags & kHidden);
        std::memcpy(stops + i, &found, sizeof found);
    }
    for (; i <= count; ++i) {
        const bool special = text[i] == '_' ? text[i - 1] == ' ' : kKinds[text[i]] != Kind::Word;
        stops[i] = static_cast<std::uint8_t>((special ? kSpecial : 0) | (map[i] & kHidden));
    }
    std::memset(stops + count + 1, kSpecial, 8);
}

ALWAYS_INLINE bool IsLandmark(const unsigned char* word, Pos length) {
    const auto is = [word](const char* landmark, std::size_t size) { return std::memcmp(word, landmark, size) == 0; };
    switch (length) {
        case 3:
            return is("dim", 3) || is("end", 3);
        case 5:
            return is("const", 5) || is("redim", 5);
        case 6:
            return is("static", 6);
        default:
            return false;
    }
}

// Of a character in lower case.
constexpr bool IsLetter(int c) {
    return (c >= 'a' && c <= 'z') || c >= 0x80;
}
constexpr bool IsNamePart(int c) {
    return IsLetter(c) || IsDigit(c) || c == '_';
}

class Tokeniser {
public:
    ALWAYS_INLINE explicit Tokeniser(ModuleText& text)
        : text_(reinterpret_cast<const unsigned char*>(text.ModulText().data()) - 1),
          count_(text.CharCount()),
          map_(text.MapForPass()) {
        // Each character ends at most one token.
        const auto size = static_cast<std::size_t>(count_) + 32;
        if (scratch.size() < size)
            scratch.resize(size);
        if (stopsScratch.size() < size)
            stopsScratch.resize(size);
        stops_ = stopsScratch.data();
        first_ = scratch.data();
        *first_ = {0, 1};
        next_ = first_ + 1;
        landmarks.clear();
        literals.clear();
        FindStops(text_, map_, count_, stops_);
    }

    TokenTable Run(std::pmr::memory_resource* memory) {
        // The quick steps work on a copy that is passed to no call and therefore stays in registers; Step works on
        // *this.
        Tokeniser quick = *this;
        for (Pos i = 1; i <= count_; ++i) {
            quick.p2_ = quick.p1_;
            quick.p1_ = quick.c_;
            if (quick.stops_[i] & kHidden) {
                i = quick.SkipHidden(i);
                continue;
            }
            quick.c_ = quick.text_[i];
            const Kind kind = kKinds[quick.c_];
            if (quick.scanning_ & !quick.inComment_ & !quick.inString_ && quick.QuickStep(i, kind))
                continue;
            *this = quick;
            i = Step(i, kind);
            quick = *this;
        }
        return TokenTable({first_, static_cast<std::size_t>(quick.next_ - first_)}, landmarks, literals, memory);
    }

    static void ReleaseArrays() {
        // clear() would keep the megabytes that the largest module needed.
        scratch = std::vector<TokenTable::Packed>();
        stopsScratch = std::vector<std::uint8_t>();
        landmarks = std::vector<int>();
        literals = std::vector<int>();
    }

private:
    // The character at a position, or -1 after the end of the text.
    [[nodiscard]] ALWAYS_INLINE int At(Pos pos) const { return pos <= count_ ? text_[pos] : -1; }

    // Does the same as Step for the simple cases; returns false for all others.
    ALWAYS_INLINE bool QuickStep(Pos& i, Kind kind) {
        switch (kind) {
            case Kind::Word:
                i = Word(i);
                return true;
            case Kind::Blank:
                if (pending_ && p1_ != ' ') {
                    if (PendingIsRem(i))
                        return false;
                    Emit(i);
                    pending_ = false;
                }
                i = SkipBlanks(i);
                return true;
            case Kind::Bracket:
                if (c_ == '.' && IsDigit(At(i + 1)))
                    return false;
                EmitPending(i);
                StartAt(i);
                return true;
            case Kind::Operator:
                if (c_ == '=' && (p1_ == ':' || p1_ == '<' || p1_ == '>'))
                    return false;
                EmitPending(i);
                StartAt(i);
                return true;
            case Kind::Other:
                if (c_ != '\r' || (p1_ == '_' && p2_ == ' ') || i == count_ || text_[i + 1] != '\n' ||
                    (stops_[i + 1] & kHidden))
                    return false;
                i = LineEnd(i);
                return true;
            case Kind::Sign:
                if (p1_ != ' ' && p1_ != '\n')
                    EmitPending(i);
                StartAt(i);
                return true;
            case Kind::Quote:
                return p1_ != '"' && WholeLiteral(i);
            default:
                return false;
        }
    }

    // A literal that ends in its line and is flagged as a string throughout; returns false without changing anything if
    // it is not.
    ALWAYS_INLINE bool WholeLiteral(Pos& i) {
        Pos last = i;  // last position of the content
        while (last < count_ && text_[last + 1] != '"' && text_[last + 1] != '\r' && text_[last + 1] != '\n' &&
               map_[last + 1] == IsString)
            ++last;
        if (last == count_ || text_[last + 1] != '"' || (stops_[last + 1] & kHidden))
            return false;
        if (p1_ != ' ')
            EmitPending(i);
        StartAt(i);
        NoteLiteral(i);
        map_[i] |= IsString;
        map_[last + 1] |= IsString | NotCompile;
        p2_ = last > i ? text_[last - 1] : p1_;
        p1_ = text_[last];
        c_ = '"';
        i = last + 1;
        return true;
    }

    // First stop at or after `i`.
    [[nodiscard]] ALWAYS_INLINE Pos NextStop(Pos i) const {
        if constexpr (std::endian::native == std::endian::little) {
            for (;; i += 8) {
                if (const std::uint64_t eight = Eight(stops_ + i); eight != 0)
                    return i + std::countr_zero(eight) / 8;
            }
        }
        while (stops_[i] == 0)
            ++i;
        return i;
    }

    // Last position of the hidden range that begins at `i`. Only p1_ and p2_ advance there.
    ALWAYS_INLINE Pos SkipHidden(Pos i) {
        const Pos first = i;
        // A comment or an excluded block repeats one flag value.
        const std::uint64_t same = Repeat(map_[i]);
        while (i + 8 <= count_ && Eight(map_ + i + 1) == same)
            i += 8;
        while (i < count_ && (stops_[i + 1] & kHidden))
            ++i;
        if (i > first)
            p2_ = p1_;
        return i;
    }

    ALWAYS_INLINE void Emit(Pos i) {
        if (i <= tokStart_)
            return;
        const Pos length = i - tokStart_;
        if (IsLandmark(text_ + tokStart_, length))
            landmarks.push_back(static_cast<int>(next_ - first_));
        *next_++ = {tokStart_, static_cast<std::uint32_t>(length) << 1 | (tokensInStatement_ ? 0U : 1U)};
        tokensInStatement_ = true;
    }
    ALWAYS_INLINE void EmitPending(Pos i) {
        if (pending_)
            Emit(i);
    }
    ALWAYS_INLINE void StartAt(Pos i) {
        tokStart_ = i;
        pending_ = true;
    }
    // The token that has just been started is a string literal: notes it if it may be a name. Of doubled quotes the
    // same token is started twice.
    ALWAYS_INLINE void NoteLiteral(Pos i) {
        if (!IsLetter(At(++i)))
            return;
        while (IsNamePart(At(i)))
            ++i;
        if (At(i) == '"')
            NoteLiteralToken();
    }
    [[gnu::noinline]] void NoteLiteralToken() const {
        const int nr = static_cast<int>(next_ - first_);
        if (literals.empty() || literals.back() != nr)
            literals.push_back(nr);
    }
    [[nodiscard]] ALWAYS_INLINE bool PendingIsRem(Pos i) const {
        return i - tokStart_ == 3 && text_[tokStart_] == 'r' && text_[tokStart_ + 1] == 'e' &&
               text_[tokStart_ + 2] == 'm';
    }

    // Reads a word in code from its first plain character on, and the blanks after it; returns the last position read.
    ALWAYS_INLINE Pos Word(Pos i) {
        if (pending_ && Flushes()) {
            Emit(i);
            pending_ = false;
        }
        if (!pending_)
            StartAt(i);
        const Pos stop = NextStop(i + 1);
        if (stop > count_ || text_[stop] != ' ' || (stops_[stop] & kHidden) || PendingIsRem(stop)) {
            // A "_" after a blank is a stop, so p2_ does not matter here.
            if (stop > i + 1) {
                p1_ = text_[stop - 2];
                c_ = text_[stop - 1];
            }
            return stop - 1;
        }
        Emit(stop);
        pending_ = false;
        p1_ = text_[stop - 1];
        return SkipBlanks(stop);
    }

    // Last blank of the run that begins at `i`; p1_ is the character before `i`.
    ALWAYS_INLINE Pos SkipBlanks(Pos i) {
        c_ = ' ';
        if (text_[i + 1] != ' ')
            return i;
        const Pos first = i;
        if constexpr (std::endian::native == std::endian::little) {
            while (i + 8 <= count_) {
                // Zero bytes mark blanks that are not hidden.
                const std::uint64_t others =
                    (Eight(text_ + i + 1) ^ Repeat(' ')) | (Eight(stops_ + i + 1) ^ Repeat(kSpecial));
                if (others != 0) {
                    i += std::countr_zero(others) / 8;
                    break;
                }
                i += 8;
            }
        }
        while (i < count_ && text_[i + 1] == ' ' && !(stops_[i + 1] & kHidden))
            ++i;
        if (i > first)
            p1_ = ' ';
        return i;
    }

    // Reads CR LF at the end of a statement and the indentation of the next line.
    ALWAYS_INLINE Pos LineEnd(Pos i) {
        EmitPending(i);
        pending_ = false;
        tokensInStatement_ = false;
        if (i + 1 < count_ && text_[i + 2] == ' ' && !(stops_[i + 2] & kHidden)) {
            p1_ = '\n';
            return SkipBlanks(i + 2);
        }
        p1_ = '\r';
        c_ = '\n';
        return i + 1;
    }

    // The general step for one character.
    [[gnu::noinline]] Pos Step(Pos i, Kind kind) {
        bool endOfStatement = false;
        if (c_ == '\r')
            endOfStatement = !(p1_ == '_' && p2_ == ' ');
        else if (c_ == ':' && !inComment_ && !inString_)
            endOfStatement = At(i + 1) == ' ';
        if (endOfStatement)
            awaitResume_ = true;
        if (scanning_)
            i = Scan(i, kind, endOfStatement);
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
        return i;
    }

    ALWAYS_INLINE Pos Scan(Pos i, Kind kind, bool endOfStatement) {
        const bool inText = inComment_ || inString_;
        switch (kind) {
            case Kind::Sign:
                // A sign directly after a word ends it and starts a token.
                if (inText) {
                    pending_ = true;
                } else {
                    if (p1_ != ' ' && p1_ != '\n')
                        EmitPending(i);
                    StartAt(i);
                }
                break;
            case Kind::Colon:
                if (inText) {
                    pending_ = true;
                } else {
                    Emit(i);  // also text without a running text
                    StartAt(i);
                    if (awaitResume_) {
                        tokStart_ = i + 2;
                        pending_ = false;
                    }
                }
                break;
            case Kind::Apostrophe:
                if (inText)
                    pending_ = true;
                else
                    inComment_ = true;
                break;
            case Kind::Quote:
                return Quote(i);
            case Kind::Blank:
                return Blank(i, inText);
            case Kind::Bracket:
                if (inText) {
                    pending_ = true;
                } else if (c_ == '.' && IsDigit(At(i + 1))) {
                    if (!pending_)
                        StartAt(i);
                } else {
                    EmitPending(i);
                    StartAt(i);
                }
                break;
            case Kind::Operator:
                if (inText || (c_ == '=' && (p1_ == ':' || p1_ == '<' || p1_ == '>'))) {
                    pending_ = true;
                } else {
                    EmitPending(i);
                    StartAt(i);
                }
                break;
            case Kind::Other:
            case Kind::Word:
                Other(i, endOfStatement, inText);
                break;
        }
        return i;
    }

    ALWAYS_INLINE Pos Quote(Pos i) {
        if (inComment_) {
            pending_ = true;
        } else if (!inString_) {
            // Directly after a closing quote this is a doubled quote. The part before it deliberately gives no token.
            if (p1_ == '"')
                map_[i - 1] |= IsString;
            else if (p1_ != ' ')
                EmitPending(i);
            inString_ = true;
            StartAt(i);
            NoteLiteral(i);
            return SkipLiteral(i);
        } else {
            map_[i] |= IsString | NotCompile;
            inString_ = false;
            pending_ = true;
        }
        return i;
    }

    // Skips the content of a literal up to the character before its closing quote or line end, as far as it is already
    // flagged as a string.
    ALWAYS_INLINE Pos SkipLiteral(Pos i) {
        const Pos first = i;
        while (i < count_ && text_[i + 1] != '"' && text_[i + 1] != '\r' && text_[i + 1] != '\n' &&
               map_[i + 1] == IsString)
            ++i;
        if (i > first) {
            map_[first] |= IsString;
            p2_ = i > first + 1 ? text_[i - 2] : p1_;
            p1_ = text_[i - 1];
            c_ = text_[i];
        }
        return i;
    }

    ALWAYS_INLINE Pos Blank(Pos i, bool inText) {
        if (inText) {
            pending_ = true;
            return i;
        }
        if (p1_ != ' ' && pending_) {
            if (PendingIsRem(i)) {
                inComment_ = true;
                for (Pos back = i; back > i - 4; --back)
                    map_[back] |= IsComment;
                return i;
            }
            Emit(i);
            pending_ = false;
        }
        return i;
    }

    ALWAYS_INLINE void Other(Pos i, bool endOfStatement, bool inText) {
        if (endOfStatement) {
            EmitPending(i);
            pending_ = false;
        } else if (!inText && c_ != '\r' && c_ != '\n' && !(c_ == '_' && p1_ == ' ') && pending_ && Flushes()) {
            Emit(i);
            pending_ = false;
        }
        if (c_ == '\r' || c_ == '\n')
            pending_ = false;
        else if (!pending_)
            StartAt(i);
    }

    // True if the preceding character ends the pending text as a token before a plain character is appended.
    [[nodiscard]] ALWAYS_INLINE bool Flushes() const {
        switch (p1_) {
            case '-':
            case '(':
            case ')':
            case ' ':
            case '=':
            case '#':
                return true;
            case '.':
                return !IsDigit(c_);
            default:
                return false;
        }
    }

    // Working arrays, reused for one module after the other on each thread.
    static inline thread_local std::vector<TokenTable::Packed> scratch;
    static inline thread_local std::vector<std::uint8_t> stopsScratch;
    static inline thread_local std::vector<int> landmarks;
    static inline thread_local std::vector<int> literals;

    const unsigned char* text_;  // text_[1] is the first character
    Pos count_;
    std::uint8_t* map_;
    std::uint8_t* stops_ = nullptr;
    TokenTable::Packed* first_ = nullptr;
    TokenTable::Packed* next_ = nullptr;
    // The current character and the two before it; NUL before the first. They are integers because g++ keeps
    // neighbouring bytes together in one register and then takes them apart at every step.
    int c_ = 0;
    int p1_ = 0;
    int p2_ = 0;
    Pos tokStart_ = 1;
    bool pending_ = false;  // there is a running text
    bool tokensInStatement_ = false;
    bool inComment_ = false;
    bool inString_ = false;
    bool scanning_ = true;
    bool awaitResume_ = false;
};

}  // namespace

TokenTable Analyse_Parsen(ModuleText& text, std::pmr::memory_resource* memory) {
    return Tokeniser(text).Run(memory);
}

void ReleaseTokeniserArrays() {
    Tokeniser::ReleaseArrays();
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

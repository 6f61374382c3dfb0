// Declarations are found by their tokens. The stretch of whole statements grows to whole lines where they have these to
// themselves, and takes the colon where they have not. Where the text does not say clearly what belongs to the object,
// nothing is cut: a procedure without its end, a stretch that cuts a conditional block in two.
#include "project/object_cut.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"
#include "source/line_scan.h"
#include "source/module_text.h"
#include "source/tokens.h"

namespace {

constexpr std::string_view kBlanks = " \t";

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n_") == std::string_view::npos;
}

/// The first word of a text and, in `text`, what comes after it.
std::string_view TakeWord(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
    text.remove_prefix(word.size());
    return word;
}

void Join(std::vector<Stretch>& stretches, Stretch next) {
    if (!stretches.empty() && stretches.back().End() >= next.start)
        stretches.back().length = std::max(stretches.back().End(), next.End()) - stretches.back().start;
    else
        stretches.push_back(next);
}

class Cutter {
public:
    explicit Cutter(const CodeObject& object)
        : object_(object), text_(*object.Modul->text), tokens_(*object.Modul->tokens), lower_(text_.ModulText()) {}

    ObjectCut Cut() {
        switch (object_.Class()) {
            case ObjectClass::Prozedur:
                return CutProcedure(static_cast<const clsProzedur&>(object_));
            case ObjectClass::Type:
            case ObjectClass::Enum:
                return CutBlock();
            case ObjectClass::Variable:
                return CutVariable(static_cast<const clsVariable&>(object_));
            case ObjectClass::Control:
                return CutControl();
            default:
                return {{}, Text::PartOfOther};
        }
    }

private:
    [[nodiscard]] static ObjectCut Unclear() { return {{}, Text::CutUnclear}; }
    [[nodiscard]] std::string_view Word(int nr) const { return tokens_.Text(lower_, nr); }
    [[nodiscard]] Pos TextEnd() const { return Len(lower_) + 1; }
    [[nodiscard]] std::string_view Between(Pos from, Pos end) const {
        return lower_.substr(static_cast<std::size_t>(from) - 1, static_cast<std::size_t>(std::max(end - from, 0)));
    }

    /// The token that begins at or last before a position; 0 for none.
    [[nodiscard]] int TokenAt(Pos pos) const {
        int low = 0;
        for (int high = tokens_.Count(); low < high;) {
            const int middle = (low + high + 1) / 2;
            if (tokens_.PosOf(middle) <= pos)
                low = middle;
            else
                high = middle - 1;
        }
        return low;
    }
    [[nodiscard]] int FirstOfStatement(int nr) const {
        while (nr > 1 && tokens_.ContinuesStatement(nr))
            --nr;
        return nr;
    }
    /// Position after the line end of the logical line around a position.
    [[nodiscard]] Pos AfterLine(Pos pos) const {
        const Pos end = text_.Get_VBZeilenEnde(pos);
        return end == 0 ? TextEnd() : end + 2;
    }
    [[nodiscard]] Pos LineBegin(Pos pos) const { return std::max(text_.Get_VBZeilenBeginn_Safe(pos), 1); }

    /// Whether a line of blanks only ends before a position, or nothing does.
    [[nodiscard]] bool IsBlankBefore(Pos lineBegin) const {
        const std::string_view before = Between(1, lineBegin);
        if (!before.ends_with("\r\n"))
            return before.empty();
        const std::string_view line = before.substr(0, before.size() - 2);
        return IsBlank(line.substr(std::min(line.rfind('\n') + 1, line.size())));
    }
    /// Whole lines, and the blank line after them if there is one before.
    [[nodiscard]] Stretch Lines(Pos begin, Pos end) const {
        if (end < TextEnd() && IsBlankBefore(begin))
            if (const auto next = lower_.find("\r\n", static_cast<std::size_t>(end) - 1);
                next != std::string_view::npos && IsBlank(Between(end, static_cast<Pos>(next) + 1)))
                end = static_cast<Pos>(next) + 3;
        return {begin, end - begin};
    }

    /// Where the code of a statement ends that is the last of its line: before a comment, its blanks and its colon.
    [[nodiscard]] Pos CodeEnd(int last) const {
        const Pos lineEnd = text_.Get_VBZeilenEnde(tokens_.EndOf(last) - 1);
        Pos end = tokens_.EndOf(last);
        const Pos stop = lineEnd == 0 ? TextEnd() : lineEnd;
        while (end < stop && (text_.FlagsAt(end) & IsComment) == 0)
            ++end;
        const std::string_view code = Between(tokens_.PosOf(last), end);
        const auto lastCode = code.find_last_not_of(end < stop ? " \t:" : kBlanks);
        return tokens_.PosOf(last) + static_cast<Pos>(lastCode + 1);
    }

    /// The stretch of the statements from token `first` to `last`, which ends one.
    [[nodiscard]] Stretch Statements(int first, int last) const {
        const Pos begin = tokens_.PosOf(first);
        const Pos lineBegin = LineBegin(begin);
        const Pos lineEnd = AfterLine(tokens_.EndOf(last) - 1);
        const Pos next = last < tokens_.Count() ? tokens_.PosOf(last + 1) : TextEnd();
        if (next < lineEnd)
            return {begin, next - begin};
        if (IsBlank(Between(lineBegin, begin)))
            return Lines(lineBegin, lineEnd);
        const auto colon = Between(lineBegin, begin).rfind(':');
        const Pos from = colon == std::string_view::npos ? begin : lineBegin + static_cast<Pos>(colon);
        return {from, CodeEnd(last) - from};
    }

    /// Whether conditional blocks begin and end in a stretch, or outside of it.
    [[nodiscard]] bool IsBalanced(const Stretch& stretch) const {
        const std::string_view part = Between(stretch.start, stretch.End());
        int depth = 0;
        for (const Pos pos : ScanLines(part).directives) {
            std::string_view rest = part.substr(static_cast<std::size_t>(pos));
            const std::string_view word = TakeWord(rest);
            if (word == "if")
                ++depth;
            else if (word.starts_with("end"))
                --depth;
            else if (word == "const" || depth == 0)
                return false;
            if (depth < 0)
                return false;
        }
        return depth == 0;
    }

    /// Whether `last` is the last token of a statement that is "end" and one of these words. The last word of a text
    /// without a line end after it is no token.
    [[nodiscard]] bool IsEnd(int last, std::initializer_list<std::string_view> kinds) const {
        if (last == tokens_.Count() && Word(last) == "end") {
            std::string_view rest = Between(tokens_.EndOf(last), TextEnd());
            return tokens_.StartsStatement(last) && IsOneOf(TakeWord(rest), kinds) && IsBlank(rest);
        }
        return Word(last - 1) == "end" && tokens_.StartsStatement(last - 1) && IsOneOf(Word(last), kinds);
    }

    /// Whether a procedure or block seems to begin between two tokens, which means that the end of the object is
    /// missing.
    [[nodiscard]] bool HoldsAnother(int from, int last) const {
        for (int nr = from; nr <= last; ++nr) {
            if (tokens_.ContinuesStatement(nr))
                continue;
            int at = nr;
            while (IsOneOf(Word(at), {"public", "private", "global", "friend", "static"}))
                ++at;
            if (IsOneOf(Word(at), {"sub", "function", "property"}) && tokens_.ContinuesStatement(at + 1))
                return true;
            if (at > nr && Word(nr) != "static" && IsOneOf(Word(at), {"type", "enum", "declare", "event"}))
                return true;
        }
        return false;
    }

    /// Statements of their own, with the attributes of the object.
    [[nodiscard]] ObjectCut Whole(int first, int last) const {
        if (tokens_.LastOfStatement(last) != last || HasColonWord(first, last))
            return Unclear();
        const Stretch stretch = Statements(first, last);
        if (!IsBalanced(stretch))
            return Unclear();
        return WithAttributes(stretch, AfterLine(tokens_.EndOf(last) - 1));
    }
    /// Only a colon before a blank ends a statement; any other is a word of it, and what comes after it is not read.
    [[nodiscard]] bool HasColonWord(int first, int last) const {
        for (int nr = first; nr <= last && nr <= tokens_.LastOfStatement(first); ++nr)
            if (Word(nr).find(':') != std::string_view::npos)
                return true;
        return false;
    }

    /// Visual Basic keeps the attributes of a declaration in the lines after it.
    [[nodiscard]] ObjectCut WithAttributes(const Stretch& stretch, Pos afterLine) const {
        ObjectCut cut;
        Join(cut.stretches, stretch);
        for (Pos line = afterLine; line < TextEnd(); line = AfterLine(line)) {
            std::string_view rest = Between(line, AfterLine(line));
            if (TakeWord(rest) != "attribute")
                break;
            const std::string_view name = TakeWord(rest);
            if (name.substr(0, name.find('.')) == object_.MyName())
                Join(cut.stretches, {line, AfterLine(line) - line});
        }
        return cut;
    }

    [[nodiscard]] ObjectCut CutProcedure(const clsProzedur& prozedur) const {
        const int first = FirstOfStatement(TokenAt(prozedur.DeclareStart));
        const int head = tokens_.LastOfStatement(first);
        if (prozedur.isDeclare || Word(TokenAt(prozedur.NamePos) - 1) == "event")
            return Whole(first, head);
        const int last = prozedur.DeclareEndTNr;
        const bool isClosed = IsEnd(last, {"sub", "function", "property"});
        return isClosed && !HoldsAnother(head + 1, last - 1) ? Whole(first, last) : Unclear();
    }

    [[nodiscard]] ObjectCut CutBlock() const {
        const int first = FirstOfStatement(TokenAt(object_.DeclareStart));
        const int last = TokenAt(object_.DeclareEnd - 1);
        const bool isClosed = IsEnd(last, {object_.Class() == ObjectClass::Type ? "type" : "enum"});
        return isClosed && !HoldsAnother(tokens_.LastOfStatement(first) + 1, last - 1) ? Whole(first, last) : Unclear();
    }

    [[nodiscard]] ObjectCut CutVariable(const clsVariable& variable) const {
        const bool isLocal = variable.Prozedur != nullptr;
        if (variable.MyType || variable.MyEnum || variable.isFormInstance || variable.isResult ||
            variable.Zugriff == Access::Argument || (!isLocal && variable.MyName() == "me"))
            return {{}, Text::PartOfOther};
        const int name = TokenAt(variable.DeclareStart);
        const int first = FirstOfStatement(name);
        const int last = tokens_.LastOfStatement(name);
        if (variable.isRedim || tokens_.PosOf(name) != variable.DeclareStart || HasColonWord(first, last))
            return Unclear();
        const std::vector<int> commas = CommasOf(first, last);
        if (!commas.empty())
            return CutDeclarator(name, last, commas);
        if (isLocal && !HasLineForItself(first, last))
            return Unclear();  // it may follow Then, or its colon may belong to a label
        return Whole(first, last);
    }

    [[nodiscard]] bool HasLineForItself(int first, int last) const {
        const Pos next = last < tokens_.Count() ? tokens_.PosOf(last + 1) : TextEnd();
        return IsOneOf(Word(first), {"dim", "static", "const"}) && next >= AfterLine(tokens_.EndOf(last) - 1) &&
               IsBlank(Between(LineBegin(tokens_.PosOf(first)), tokens_.PosOf(first)));
    }

    [[nodiscard]] std::vector<int> CommasOf(int first, int last) const {
        std::vector<int> commas;
        int depth = 0;
        for (int nr = first; nr <= last; ++nr) {
            depth += (Word(nr) == "(") - (Word(nr) == ")");
            if (depth == 0 && Word(nr) == ",")
                commas.push_back(nr);
        }
        return commas;
    }

    /// One of several variables of a statement: the first goes with the comma after it, each other with the one before.
    [[nodiscard]] ObjectCut CutDeclarator(int name, int last, const std::vector<int>& commas) const {
        const int begin = Word(name - 1) == "withevents" ? name - 1 : name;
        const auto next = std::upper_bound(commas.begin(), commas.end(), name);
        const Pos afterLine = AfterLine(tokens_.EndOf(last) - 1);
        if (next == commas.begin()) {
            const Pos from = tokens_.PosOf(begin);
            return WithAttributes({from, tokens_.PosOf(*next + 1) - from}, afterLine);
        }
        if (begin != next[-1] + 1)
            return Unclear();
        const Pos from = tokens_.PosOf(next[-1]);
        const Pos end = next == commas.end() ? EndOfStatement(last) : tokens_.PosOf(*next);
        return WithAttributes({from, end - from}, afterLine);
    }
    /// Position after the code of a statement: before the colon that ends it, or a comment.
    [[nodiscard]] Pos EndOfStatement(int last) const {
        const Pos afterLine = AfterLine(tokens_.EndOf(last) - 1);
        if (last == tokens_.Count() || tokens_.PosOf(last + 1) >= afterLine)
            return CodeEnd(last);
        const Pos from = tokens_.PosOf(last);
        const std::string_view code = Between(from, tokens_.PosOf(last + 1));
        const std::string_view own = code.substr(0, code.rfind(':'));
        return from + static_cast<Pos>(own.find_last_not_of(kBlanks) + 1);
    }

    /// All blocks of the control's name in the header: more than one for an array of controls.
    [[nodiscard]] ObjectCut CutControl() const {
        ObjectCut cut;
        int depth = 0;
        int ownDepth = 0;  // of the block that is being cut, else 0
        Pos from = 0;
        for (Pos line = 1; line < TextEnd() && line < object_.Modul->BeginnVarBereich;) {
            const Pos next = AfterLine(line);
            std::string_view rest = Between(line, next);
            rest.remove_suffix(rest.ends_with("\r\n") ? 2 : 0);
            const std::string_view word = TakeWord(rest);
            if (word == "begin") {
                ++depth;
                TakeWord(rest);
                if (TakeWord(rest) == object_.MyName() && ownDepth == 0) {
                    if (depth < 2)
                        return {{}, Text::PartOfOther};  // the form itself
                    ownDepth = depth;
                    from = line;
                }
            } else if (word == "end" && IsBlank(rest)) {
                if (depth == ownDepth) {
                    Join(cut.stretches, {from, next - from});
                    ownDepth = 0;
                }
                --depth;
            }
            line = next;
        }
        if (cut.stretches.empty())
            return {{}, Text::PartOfOther};
        return ownDepth == 0 ? cut : Unclear();
    }

    const CodeObject& object_;
    const ModuleText& text_;
    const TokenTable& tokens_;
    std::string_view lower_;
};

}  // namespace

ObjectCut DeleteMe(const CodeObject& object) {
    if (!object.Modul || !object.Modul->text || object.myLibrary)
        return {{}, Text::PartOfOther};
    return Cutter(object).Cut();
}

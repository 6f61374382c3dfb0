// Lists the directives with their nesting level and the value of their expression. Then it makes at most one part of
// each block true and all parts inside a false part false, and collects the ranges to hide, which run from directive to
// directive. The records of each level are linked (next, previous), so every step is linear for any nesting, even in
// damaged source.
#include "source/cond_compile.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include "platform/code_page.h"
#include "platform/expression.h"
#include "platform/settings_file.h"
#include "shell/errors.h"
#include "source/lines.h"
#include "source/words.h"

namespace {

constexpr std::size_t kNone = SIZE_MAX;

struct Range {
    Pos start;
    Pos ende;
};

// Splits `text` at the first `separator`. The second part ends at the next separator; it is empty if there is none.
CondConstant NameAndValue(std::string_view text, std::string_view separator) {
    const auto first = text.find(separator);
    if (first == std::string_view::npos)
        return {std::string(text), {}};
    const auto after = first + separator.size();
    const auto second = text.find(separator, after);
    return {std::string(text.substr(0, first)), std::string(text.substr(after, second - after))};
}

class Evaluator {
public:
    Evaluator(const ModuleText& text, const std::vector<CondConstant>& moduleConstants,
              const std::vector<CondConstant>& condComps, std::string_view description)
        : text_(text), description_(description) {
        for (const CondConstant& constant : moduleConstants)
            definitions_.push_back(&constant);
        for (std::size_t row = 1; row < condComps.size(); ++row)
            definitions_.push_back(&condComps[row]);
    }

    // True for "true" and for a number other than 0. A failed expression is false.
    bool IF_is_TRUE(std::string_view expression, Pos pos) {
        DefineOnce();
        pos_ = pos;
        // A failed definition is missing in every expression, so it is reported for each of them.
        for (const ConstantExpressions::Result& failed : failedDefinitions_)
            Report(expression, failed);
        const ConstantExpressions::Result result = engine_.Evaluate(expression);
        if (!result.Ok()) {
            Report(expression, result);
            return false;
        }
        const std::string text = LowerCase(result.text);
        if (text == "true" || text == "wahr")
            return true;
        if (text == "false" || text == "falsch")
            return false;
        return LeadingNumber(text) != 0;
    }

private:
    // The definitions never change, so the engine keeps them for all expressions of the module.
    void DefineOnce() {
        for (const CondConstant* definition : definitions_)
            if (auto result = engine_.Define(definition->first, definition->second); !result.Ok())
                failedDefinitions_.push_back(std::move(result));
        definitions_.clear();
    }

    void Report(std::string_view expression, const ConstantExpressions::Result& result) {
        if (++reports_ > kMostReports)
            return;
        const std::string_view before = text_.ModulText().substr(0, static_cast<std::size_t>(pos_));
        const ErrorLine at(1 + static_cast<int>(std::count(before.begin(), before.end(), '\n')));
        ShowError("modMain: IF_is_TRUE   (check conditional compile expression \"" + std::string(expression) +
                      "\" in " + std::string(description_) + ")",
                  result.number, result.error);
    }

    static constexpr int kMostReports = 1000;  // per module

    const ModuleText& text_;
    Pos pos_ = 0;  // of the directive
    ConstantExpressions engine_;
    std::vector<const CondConstant*> definitions_;
    std::vector<ConstantExpressions::Result> failedDefinitions_;
    std::string_view description_;
    int reports_ = 0;
};

// The directive at `pos`, joined to one line without its comment. `line` receives the logical line; for a last line
// without CR LF it keeps its former value.
std::string CleanLine(const ModuleText& text, Pos pos, std::string_view& line) {
    Attempt("clsModul: Get_VBZeile_Nach_Pos", [&] { line = text.Get_String(pos, text.Get_VBZeilenEnde(pos)); });
    return std::string(Trim(modMain::Get_Clean_VBZeile(line)));
}

// The expression between the first `head` characters of a directive and the five of " then".
std::string_view ExpressionOf(std::string_view directive, std::size_t head) {
    constexpr std::size_t kThen = 5;
    return directive.size() > head + kThen ? directive.substr(head, directive.size() - head - kThen)
                                           : std::string_view();
}

std::vector<CondPart> CondCompile_IFs_lesen(const ModuleText& text, const std::vector<Pos>& directives,
                                            Evaluator& evaluator) {
    std::vector<CondPart> parts;
    int ebene = 0;
    std::string_view line;
    for (const Pos pos : directives) {
        const std::string directive = CleanLine(text, pos, line);
        CondPart part;
        part.start = pos;
        if (directive.starts_with("#if ")) {
            ++ebene;
            part.isTrue = evaluator.IF_is_TRUE(ExpressionOf(directive, 4), pos);
        } else if (directive.starts_with("#elseif ")) {
            part.typ = CondPart::Typ::ElseIf;
            part.isTrue = evaluator.IF_is_TRUE(ExpressionOf(directive, 8), pos);
        } else if (directive.starts_with("#else")) {
            part.typ = CondPart::Typ::Else;
        } else if (directive.starts_with("#end if")) {
            part.typ = CondPart::Typ::EndIf;
        } else {
            continue;
        }
        part.ende = text.Get_VBZeilenEnde(pos);
        part.ebene = ebene;
        if (part.typ == CondPart::Typ::EndIf)
            --ebene;
        parts.push_back(part);
    }
    return parts;
}

// The neighbours of each record on its own level, or kNone.
struct LevelChain {
    std::vector<std::size_t> next, previous;

    explicit LevelChain(const std::vector<CondPart>& parts) : next(parts.size(), kNone), previous(parts.size(), kNone) {
        std::unordered_map<int, std::size_t> last;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const auto [found, isNew] = last.try_emplace(parts[i].ebene, i);
            if (isNew)
                continue;
            previous[i] = found->second;
            next[found->second] = i;
            found->second = i;
        }
    }
};

// Makes at most one part of the block that begins at `nr` true.
void CondCompile_IFBlock_Klar(std::vector<CondPart>& parts, const LevelChain& chain, std::size_t nr) {
    bool found = false;
    for (std::size_t i = nr; i != kNone && parts[i].typ != CondPart::Typ::EndIf; i = chain.next[i]) {
        CondPart& part = parts[i];
        if (part.typ == CondPart::Typ::If) {
            found = part.isTrue;
        } else if (part.typ == CondPart::Typ::ElseIf) {
            if (found)
                part.isTrue = false;
            else
                found = part.isTrue;
        } else if (!found) {
            part.isTrue = true;
            found = true;
        }
    }
}

// Inside a part that is not compiled, no nested part is compiled.
void CondCompile_IFPart_UnterebenenAus(std::vector<CondPart>& parts, const LevelChain& chain) {
    std::size_t falseUntil = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i < falseUntil)
            parts[i].isTrue = false;
        if (parts[i].typ != CondPart::Typ::EndIf && !parts[i].isTrue)
            falseUntil = std::max(falseUntil, std::min(chain.next[i], parts.size()));
    }
}

std::vector<Range> HiddenRanges(const std::vector<CondPart>& parts, const LevelChain& chain) {
    std::vector<Range> ranges;
    const auto endAt = [&](Pos ende) {
        if (!ranges.empty())
            ranges.back().ende = ende;
    };
    for (std::size_t i = 0; i < parts.size();) {
        const CondPart& part = parts[i];
        std::size_t jump = i + 1;
        if (part.typ == CondPart::Typ::EndIf) {
            const std::size_t before = chain.previous[i];
            if (before != kNone && parts[before].isTrue)
                ranges.push_back({part.start, part.ende});
            else
                endAt(part.ende);
        } else if (part.isTrue && part.typ != CondPart::Typ::If) {
            endAt(part.ende);
        } else {
            ranges.push_back({part.start, part.ende});
            if (!part.isTrue) {
                std::size_t to = chain.next[i];
                if (part.typ == CondPart::Typ::If)
                    while (to != kNone && parts[to].typ != CondPart::Typ::EndIf && !parts[to].isTrue)
                        to = chain.next[to];
                if (to != kNone) {
                    endAt(parts[to].ende);
                    jump = to;
                }
            }
        }
        i = jump;
    }
    return ranges;
}

void CondCompile_Add_Attributes(const ModuleText& text, const LineScan& lines, std::vector<Range>& ranges) {
    for (const Pos pos : lines.attributes) {
        // The hit is this word, or a later one of the same line if a string that began in an earlier line hides this
        // one.
        const Pos lineEnd = text.Get_VBZeilenEnde(pos);
        const Pos hit = Suche_GanzesWort_Im_Code(text, pos, "attribute");
        if (hit != 0 && (lineEnd == 0 || hit < lineEnd))
            ranges.push_back({text.Get_VBZeilenBeginn_Safe(hit), lineEnd});
    }
}

}  // namespace

std::vector<CondConstant> CondCompile_ModulKonstanten(const ModuleText& text, const std::vector<Pos>& directives) {
    static constexpr std::string_view kConst = "#const";
    std::vector<CondConstant> constants;
    std::string_view line;
    for (const Pos pos : directives) {
        if (Mid(text.ModulText(), pos, Len(kConst)) != kConst)
            continue;
        const std::string directive = CleanLine(text, pos, line);
        if (directive.starts_with(kConst))
            constants.push_back(NameAndValue(Mid(directive, Len(kConst) + 2), " = "));
    }
    return constants;
}

std::vector<CondConstant> CondCompsOfLine(std::string_view line) {
    std::vector<CondConstant> constants;
    const auto first = line.find(gQuote);
    const auto second = first == std::string_view::npos ? first : line.find(gQuote, first + 1);
    if (second == std::string_view::npos)
        return constants;
    std::string text = LowerCase(line.substr(first + 1, second - first - 1));
    static constexpr std::string_view kBetween = " : ";
    if (text.empty() || text.starts_with(kBetween))
        return constants;
    for (std::size_t from = 0; from <= text.size();) {
        const auto end = std::min(text.find(kBetween, from), text.size());
        constants.push_back(NameAndValue(std::string_view(text).substr(from, end - from), " = "));
        from = end + kBetween.size();
    }
    return constants;
}

void CondCompile_Initialisieren(ModuleText& text, const LineScan& lines, const std::vector<CondConstant>& condComps,
                                std::string_view moduleDescription) {
    std::vector<Range> ranges;
    if (!lines.directives.empty()) {
        const std::vector<CondConstant> moduleConstants = CondCompile_ModulKonstanten(text, lines.directives);
        Evaluator evaluator(text, moduleConstants, condComps, moduleDescription);
        std::vector<CondPart> parts = CondCompile_IFs_lesen(text, lines.directives, evaluator);
        const LevelChain chain(parts);
        for (std::size_t nr = 0; nr < parts.size(); ++nr)
            if (parts[nr].typ == CondPart::Typ::If)
                CondCompile_IFBlock_Klar(parts, chain, nr);
        CondCompile_IFPart_UnterebenenAus(parts, chain);
        ranges = HiddenRanges(parts, chain);
    }
    CondCompile_Add_Attributes(text, lines, ranges);
    for (const Range& range : ranges)
        text.Hide(range.start, range.ende);
}

void CondCompile_Initialisieren(ModuleText& text, const std::vector<CondConstant>& condComps,
                                std::string_view moduleDescription) {
    CondCompile_Initialisieren(text, ScanLines(text.ModulText()), condComps, moduleDescription);
}

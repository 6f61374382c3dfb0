// One pass over the declarations of each module, side by side. In procedures the walk for calls has noted the places
// that it passes by; only for names that are keywords they are read again. A table of lengths and letters passes nearly
// all words by; for the few that remain the edges of their procedure say whether the walk for calls has understood
// them.
#include "reach/mentions.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "platform/ascii.h"
#include "reach/reasons.h"
#include "reach/side_by_side.h"

namespace {

Pos NamePosOf(const CodeObject& object) {
    switch (object.Class()) {
        case ObjectClass::Prozedur:
            return static_cast<const clsProzedur&>(object).NamePos;
        case ObjectClass::Type:
            return static_cast<const clsType&>(object).NamePos;
        case ObjectClass::Enum:
            return static_cast<const clsEnum&>(object).NamePos;
        default:
            return object.DeclareStart;
    }
}

bool IsTypeMember(const CodeObject& object) {
    return object.Class() == ObjectClass::Variable && static_cast<const clsVariable&>(object).MyType;
}

// Whether the object can be after a point in a module with any value before it.
bool IsMemberOfValue(const clsModul& modul, const CodeObject& object) {
    const CodeObject& owner = Sought::OwnerOf(object);
    const CodeObject& declared = owner.Class() == ObjectClass::Type ? owner : object;
    const bool isMember = owner.Class() == ObjectClass::Type ||
                          (owner.Class() == ObjectClass::Modul && object.Modul->ModulTyp != ModuleKind::Module);
    return isMember && (declared.Zugriff != Access::Private || object.Modul == &modul);
}

// Whether it is the accessor that an assignment calls.
bool Assigns(const CodeObject& object) {
    if (object.Class() != ObjectClass::Prozedur)
        return false;
    const ProcKind kind = static_cast<const clsProzedur&>(object).ProzedurTyp;
    return kind == ProcKind::PropertyLet || kind == ProcKind::PropertySet;
}

bool IsOwnedBy(std::string_view word, const CodeObject& object) {
    return ascii::SameText(word, Sought::OwnerOf(object).MyName());
}

// Whether a bare name in a module can mean the object.
bool IsSeenIn(const clsModul& modul, const CodeObject& object) {
    if (IsTypeMember(object))
        return false;
    if (object.Modul == &modul)
        return true;
    const CodeObject& owner = Sought::OwnerOf(object);
    const CodeObject& declared = owner.Class() == ObjectClass::Enum ? owner : object;
    const bool isFree = object.Modul->ModulTyp == ModuleKind::Module || declared.Class() == ObjectClass::Enum ||
                        declared.Class() == ObjectClass::Type;
    return isFree && declared.Zugriff != Access::Private;
}

class MentionReader {
public:
    MentionReader(const clsProjekt& projekt, const Sought& sought, const clsModul& modul)
        : projekt_(projekt), sought_(sought), modul_(modul), tokens_(*modul.tokens), text_(modul.text->ModulTextOrg()) {
        for (const clsProzedur* prozedur : modul.MyProcs)
            if (prozedur->DeclareStartTNr > 0)
                procedures_.push_back(prozedur);
    }

    std::vector<Mention> Read() {
        const Lengths keywords = LengthsOfKeywords();
        int next = std::max(modul_.TokNrBeginnVarBereich, 1);
        for (const clsProzedur* prozedur : procedures_) {
            const int first = std::max(next, prozedur->DeclareStartTNr);
            Tokens(next, first - 1, sought_.AllLengths());
            next = std::max(first, prozedur->DeclareEndTNr);
            if (keywords.any())
                Tokens(first, next - 1, keywords);
        }
        Tokens(next, tokens_.Count(), sought_.AllLengths());
        Passed();
        std::ranges::stable_sort(found_, {}, &Mention::pos);
        for (const auto& [first, last] : modul_.text->Hidden())
            Hidden(first, last);
        return std::move(found_);
    }

private:
    [[nodiscard]] std::string_view Word(int nr) const { return tokens_.Text(text_, nr); }

    using Lengths = Sought::Lengths;
    // Lengths of the names of objects here that are also keywords: the walk for calls passes them by unseen.
    [[nodiscard]] Lengths LengthsOfKeywords() const {
        Lengths lengths;
        for (const Sought::Entry& entry : sought_.Keywords())
            if (IsSeenIn(modul_, *entry.object))
                Sought::AddLength(lengths, entry);
        return lengths;
    }
    void Passed() {
        for (const auto& [hash, nr] : modul_.passedWords.words)
            if (sought_.MayBeName(hash))
                Tokens(nr, nr, sought_.AllLengths());
        for (const auto& [hash, nr] : modul_.passedWords.members)
            if (sought_.MayBeName(hash))
                Member(nr);
    }
    void Member(int nr) {
        const Sought::Entry* entry = sought_.First(Word(nr));
        if (!entry)
            return;
        const clsProzedur* const prozedur = ProcedureAt(nr);
        const Pos pos = tokens_.PosOf(nr);
        const CodeObject& place = prozedur ? static_cast<const CodeObject&>(*prozedur) : modul_;
        const Doubt doubt = DoubtOf(projekt_, {&place, nullptr, LinkKind::PossibleCall, pos});
        for (; entry; entry = sought_.Next(*entry)) {
            const CodeObject& object = *entry->object;
            const bool isOfType =
                doubt.kind != DoubtKind::NotInType || LastPart(doubt.type) == Sought::OwnerOf(object).MyName();
            const bool isMeant = IsOwnedBy(Word(nr - 2), object) || (isOfType && IsMemberOfValue(modul_, object));
            if (isMeant && (!Assigns(object) || MayBeAssigned(nr)))
                found_.push_back({&object, MentionKind::Code, &modul_, pos});
        }
    }
    [[nodiscard]] bool MayBeAssigned(int nr) const {
        while (tokens_.ContinuesStatement(++nr))
            if (Word(nr) == "=")
                return true;
        return false;
    }
    // `Type` of `Project.Type`.
    [[nodiscard]] static std::string_view LastPart(std::string_view type) { return type.substr(type.rfind('.') + 1); }
    // The procedure that the token is in; null in declarations.
    [[nodiscard]] const clsProzedur* ProcedureAt(int nr) const {
        const auto after = std::ranges::upper_bound(procedures_, nr, {}, &clsProzedur::DeclareStartTNr);
        const clsProzedur* const prozedur = after == procedures_.begin() ? nullptr : *std::prev(after);
        return prozedur && nr <= prozedur->DeclareEndTNr ? prozedur : nullptr;
    }

    // Looks at the words of these lengths.
    void Tokens(int first, int last, const Lengths& lengths) {
        for (int nr = first; nr <= last; ++nr)
            if (lengths.test(Sought::LengthOf(tokens_.LenOf(nr))))
                if (const Sought::Entry* entry = sought_.First(Word(nr)))
                    Token(nr, *entry);
    }
    void Token(int nr, const Sought::Entry& first) {
        const Pos pos = tokens_.PosOf(nr);
        const bool isMember = tokens_.ContinuesStatement(nr) && Word(nr - 1) == ".";
        bool isUnderstood = false;
        for (const Sought::Entry* entry = &first; entry && !isUnderstood; entry = sought_.Next(*entry)) {
            const CodeObject& object = *entry->object;
            const bool isMeant = isMember ? IsOwnedBy(Word(nr - 2), object) : IsSeenIn(modul_, object);
            if (!isMeant)
                continue;
            isUnderstood = IsArgument(nr) || IsUnderstood(nr, pos, isMember);
            if (!isUnderstood)
                found_.push_back({&object, MentionKind::Code, &modul_, pos});
        }
    }
    [[nodiscard]] bool IsArgument(int nr) const { return tokens_.ContinuesStatement(nr + 1) && Word(nr + 1) == ":="; }

    // A declaration, a local, or a place with an edge.
    [[nodiscard]] bool IsUnderstood(int nr, Pos pos, bool isMember) const {
        const std::string lower = modul_.TheNames().Page().LowerCase(Word(nr));
        if (const clsSpaceName* own = modul_.PrivNameSpace.Item(std::string_view(lower)))
            if (std::ranges::any_of(own->Objects(), [pos](const CodeObject* one) { return NamePosOf(*one) == pos; }))
                return true;
        const clsProzedur* const prozedur = ProcedureAt(nr);
        if (prozedur && !isMember && prozedur->MyVars.Contains(std::string_view(lower)))
            return true;
        const std::span<const clsCall> edges = prozedur ? prozedur->outgoing : modul_.outgoing;
        const auto edge = std::ranges::lower_bound(edges, pos, {}, &clsCall::CallPos);
        return edge != edges.end() && edge->CallPos == pos;
    }

    // A stretch that the compiler does not see: attributes line by line, and words of code.
    void Hidden(Pos first, Pos last) {
        const std::string_view all =
            text_.substr(static_cast<std::size_t>(first - 1), static_cast<std::size_t>(last - first + 1));
        for (std::size_t from = 0; from < all.size();) {
            const std::size_t end = std::min(all.find('\n', from), all.size());
            const std::string_view line = all.substr(from, end - from);
            if (IsAttribute(line))
                Attribute(line, first + static_cast<Pos>(from));
            else
                HiddenLine(line, first + static_cast<Pos>(from));
            from = end + 1;
        }
    }
    [[nodiscard]] static bool IsAttribute(std::string_view line) {
        static constexpr std::string_view kWord = "attribute ";
        return line.size() > kWord.size() && ascii::SameText(line.substr(0, kWord.size()), kWord);
    }
    // `Attribute Item.VB_UserMemId = 0`, and -4 for the enumerator.
    void Attribute(std::string_view line, Pos pos) {
        const std::string lower = ascii::LowerCase(line);
        const auto key = lower.find(".vb_usermemid = ");
        if (key == std::string::npos)
            return;
        const std::string value(ascii::Trim(std::string_view(lower).substr(key + 16, lower.find('\r') - key - 16)));
        if (value != "0" && value != "-4")
            return;
        const std::string_view name = line.substr(10, key - 10);
        for (const Sought::Entry* entry = sought_.First(name); entry; entry = sought_.Next(*entry))
            if (entry->object->Modul == &modul_ && entry->object->Class() == ObjectClass::Prozedur)
                found_.push_back({entry->object, MentionKind::DefaultMember, &modul_, pos});
    }
    void HiddenLine(std::string_view line, Pos pos) {
        const auto isPart = [](char c) {
            const char lower = ascii::Lower(c);
            return (lower >= 'a' && lower <= 'z') || ascii::IsDigit(c) || c == '_' || static_cast<signed char>(c) < 0;
        };
        for (std::size_t at = 0; at < line.size() && line[at] != '\'';) {
            if (!isPart(line[at])) {
                at = line[at] == '"' ? std::min(line.find('"', at + 1), line.size() - 1) + 1 : at + 1;
                continue;
            }
            const std::size_t first = at;
            while (at < line.size() && isPart(line[at]))
                ++at;
            const std::string_view name = line.substr(first, at - first);
            for (const Sought::Entry* entry = sought_.First(name); entry; entry = sought_.Next(*entry))
                if (IsSeenIn(modul_, *entry->object) || (first > 0 && line[first - 1] == '.'))
                    found_.push_back({entry->object, MentionKind::NotCompiled, &modul_, pos + static_cast<Pos>(first)});
        }
    }

    const clsProjekt& projekt_;
    const Sought& sought_;
    const clsModul& modul_;
    const TokenTable& tokens_;
    std::string_view text_;
    std::vector<const clsProzedur*> procedures_;  // by their first token
    std::vector<Mention> found_;
};

}  // namespace

std::vector<Mention> MentionsOf(const clsProjekt& projekt, const Sought& sought) {
    std::vector<Mention> all;
    for (const std::vector<Mention>& found : OfEachModule<std::vector<Mention>>(
             projekt, [&](const clsModul& modul) { return MentionReader(projekt, sought, modul).Read(); }))
        all.insert(all.end(), found.begin(), found.end());
    return all;
}

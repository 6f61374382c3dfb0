// One pass over the tokens of each module, side by side. A table of lengths, first and last letters passes nearly all
// words by; for the few that remain the edges of their procedure say whether the walk for calls has understood them.
#include "reach/mentions.h"

#include <algorithm>
#include <bitset>
#include <cstdint>
#include <string>
#include <unordered_map>

#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "platform/ascii.h"
#include "shell/work_ahead.h"

namespace {

constexpr std::size_t kLongestName = 255;  // in Visual Basic

// A name may be declared in brackets and be used without them.
std::string_view WithoutBrackets(std::string_view name) {
    return name.size() > 2 && name.front() == '[' && name.back() == ']' ? name.substr(1, name.size() - 2) : name;
}

// The names that are looked for.
class Sought {
public:
    Sought(const Names& names, const std::vector<const CodeObject*>& objects) : names_(names) {
        for (const CodeObject* object : objects) {
            const std::string_view name = WithoutBrackets(object->MyName());
            if (name.empty())
                continue;
            objects_[name].push_back(object);
            shapes_.set(ShapeOf(name));
        }
    }
    /// The objects of a name in any spelling; null for none.
    [[nodiscard]] const std::vector<const CodeObject*>* Objects(std::string_view word) const {
        word = WithoutBrackets(word);
        if (word.empty() || word.size() > kLongestName || !shapes_.test(ShapeOf(word)))
            return nullptr;
        char lower[kLongestName];
        names_.Page().LowerCase(word, lower);
        const auto found = objects_.find({lower, word.size()});
        return found == objects_.end() ? nullptr : &found->second;
    }

private:
    // The same for a name in any spelling: letters beyond ASCII are left out, as their lower case depends on the page.
    static std::size_t ShapeOf(std::string_view word) {
        const auto letter = [word](std::size_t at) {
            const auto c = static_cast<unsigned char>(word[at]);
            return c < 0x80 ? c | 0x20U : 0U;
        };
        std::uint64_t shape = word.size();
        for (const std::size_t at : {std::size_t{0}, word.size() / 3, word.size() / 2, word.size() - 1})
            shape = shape << 8 | letter(at);
        return static_cast<std::size_t>((shape * 0x9E3779B97F4A7C15U) >> (64 - kShapeBits));
    }

    const Names& names_;
    std::unordered_map<std::string_view, std::vector<const CodeObject*>> objects_;
    static constexpr unsigned kShapeBits = 17;
    std::bitset<std::size_t{1} << kShapeBits> shapes_;
};

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

// The type or enumeration of a member, the module of all others.
const CodeObject& OwnerOf(const CodeObject& object) {
    if (object.Class() == ObjectClass::Variable) {
        const auto& variable = static_cast<const clsVariable&>(object);
        if (variable.MyType)
            return *variable.MyType;
        if (variable.MyEnum)
            return *variable.MyEnum;
    }
    return *object.Modul;
}

bool IsTypeMember(const CodeObject& object) {
    return object.Class() == ObjectClass::Variable && static_cast<const clsVariable&>(object).MyType;
}

// Whether a bare name in a module can mean the object.
bool IsSeenIn(const clsModul& modul, const CodeObject& object) {
    if (IsTypeMember(object))
        return false;
    if (object.Modul == &modul)
        return true;
    const CodeObject& owner = OwnerOf(object);
    const CodeObject& declared = owner.Class() == ObjectClass::Enum ? owner : object;
    const bool isFree = object.Modul->ModulTyp == ModuleKind::Module || declared.Class() == ObjectClass::Enum ||
                        declared.Class() == ObjectClass::Type;
    return isFree && declared.Zugriff != Access::Private;
}

class MentionReader {
public:
    MentionReader(const Sought& sought, const clsModul& modul)
        : sought_(sought), modul_(modul), tokens_(*modul.tokens), text_(modul.text->ModulTextOrg()) {
        for (const clsProzedur* prozedur : modul.MyProcs)
            if (prozedur->DeclareStartTNr > 0)
                procedures_.push_back(prozedur);
    }

    std::vector<Mention> Read() {
        for (int nr = std::max(modul_.TokNrBeginnVarBereich, 1); nr <= tokens_.Count(); ++nr)
            if (const auto* objects = sought_.Objects(Word(nr)))
                Token(nr, *objects);
        for (const auto& [first, last] : modul_.text->Hidden())
            Hidden(first, last);
        return std::move(found_);
    }

private:
    [[nodiscard]] std::string_view Word(int nr) const { return tokens_.Text(text_, nr); }

    void Token(int nr, const std::vector<const CodeObject*>& objects) {
        const Pos pos = tokens_.PosOf(nr);
        const bool isMember = tokens_.ContinuesStatement(nr) && Word(nr - 1) == ".";
        bool isUnderstood = false;
        for (const CodeObject* object : objects) {
            const bool isMeant =
                isMember ? ascii::SameText(Word(nr - 2), OwnerOf(*object).MyName()) : IsSeenIn(modul_, *object);
            if (!isMeant || isUnderstood)
                continue;
            isUnderstood = IsArgument(nr) || IsUnderstood(nr, pos, isMember);
            if (!isUnderstood)
                found_.push_back({object, MentionKind::Code, &modul_, pos});
        }
    }
    [[nodiscard]] bool IsArgument(int nr) const { return tokens_.ContinuesStatement(nr + 1) && Word(nr + 1) == ":="; }

    // A declaration, a local, or a place with an edge.
    [[nodiscard]] bool IsUnderstood(int nr, Pos pos, bool isMember) const {
        const std::string lower = modul_.TheNames().Page().LowerCase(Word(nr));
        if (const clsSpaceName* own = modul_.PrivNameSpace.Item(std::string_view(lower)))
            if (std::ranges::any_of(own->Objects(), [pos](const CodeObject* one) { return NamePosOf(*one) == pos; }))
                return true;
        const auto behind = std::ranges::upper_bound(procedures_, nr, {}, &clsProzedur::DeclareStartTNr);
        const clsProzedur* const prozedur = behind == procedures_.begin() ? nullptr : *std::prev(behind);
        const bool isInside = prozedur && nr <= prozedur->DeclareEndTNr;
        if (isInside && !isMember && prozedur->MyVars.Contains(std::string_view(lower)))
            return true;
        const std::span<const clsCall> edges = isInside ? prozedur->outgoing : modul_.outgoing;
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
        if (const auto* objects = sought_.Objects(name))
            for (const CodeObject* object : *objects)
                if (object->Modul == &modul_ && object->Class() == ObjectClass::Prozedur)
                    found_.push_back({object, MentionKind::DefaultMember, &modul_, pos});
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
            if (const auto* objects = sought_.Objects(line.substr(first, at - first)))
                for (const CodeObject* object : *objects)
                    if (IsSeenIn(modul_, *object) || (first > 0 && line[first - 1] == '.'))
                        found_.push_back({object, MentionKind::NotCompiled, &modul_, pos + static_cast<Pos>(first)});
        }
    }

    const Sought& sought_;
    const clsModul& modul_;
    const TokenTable& tokens_;
    std::string_view text_;
    std::vector<const clsProzedur*> procedures_;  // by their first token
    std::vector<Mention> found_;
};

}  // namespace

std::vector<Mention> MentionsOf(const clsProjekt& projekt, const std::vector<const CodeObject*>& objects) {
    const Sought sought(projekt.TheNames(), objects);
    std::vector<const clsModul*> modules;
    for (const clsModul* modul : projekt.AllModules())
        if (modul->text && modul->tokens)
            modules.push_back(modul);
    WorkAhead<std::vector<Mention>> scans(
        modules.size(), [&](std::size_t nr, std::size_t) { return MentionReader(sought, *modules[nr]).Read(); });
    std::vector<Mention> all;
    for (std::size_t nr = 0; nr < modules.size(); ++nr) {
        const std::vector<Mention> found = scans.Next();
        all.insert(all.end(), found.begin(), found.end());
    }
    return all;
}

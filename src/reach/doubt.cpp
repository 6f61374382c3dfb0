#include <algorithm>

#include "model/clsControl.h"
#include "model/clsProjekt.h"
#include "platform/ascii.h"
#include "reach/reasons.h"

namespace {

// Number of the token at a position, or 0.
int TokenAt(const TokenTable& tokens, Pos pos) {
    int first = 1;
    int last = tokens.Count();
    while (first <= last) {
        const int middle = first + (last - first) / 2;
        if (tokens.PosOf(middle) == pos)
            return middle;
        (tokens.PosOf(middle) < pos ? first : last) = tokens.PosOf(middle) < pos ? middle + 1 : middle - 1;
    }
    return 0;
}

bool IsName(std::string_view word) {
    const char first = word.empty() ? ' ' : ascii::Lower(word.front());
    return (first >= 'a' && first <= 'z') || static_cast<unsigned char>(first) >= 0x80;
}

class DoubtFinder {
public:
    DoubtFinder(const clsProjekt& projekt, const Link& call)
        : projekt_(projekt),
          modul_(*call.from->Modul),
          tokens_(*modul_.tokens),
          caller_(call.from->Class() == ObjectClass::Prozedur ? static_cast<const clsProzedur*>(call.from) : nullptr),
          member_(TokenAt(tokens_, call.pos)) {}

    Doubt Find() {
        const int point = member_ - 1;
        if (member_ == 0 || Word(point) != ".")
            return {DoubtKind::Expression, {}, {}};
        int before = point - 1;
        if (tokens_.StartsStatement(point) || tokens_.EndOf(before) != tokens_.PosOf(point))
            return {DoubtKind::With, {}, {}};
        if (Word(before) == ")")
            before = BeforeBracket(before);
        return IsName(Word(before)) ? OfReceiver(before) : Doubt{DoubtKind::Expression, {}, {}};
    }

private:
    [[nodiscard]] std::string_view Word(int nr) const { return tokens_.Text(modul_.text->ModulTextOrg(), nr); }

    // What is before the bracket that the one at `nr` closes.
    [[nodiscard]] int BeforeBracket(int nr) const {
        int depth = 0;
        for (; nr > 0; --nr) {
            depth += Word(nr) == ")" ? 1 : Word(nr) == "(" ? -1 : 0;
            if (depth == 0 || tokens_.StartsStatement(nr))
                break;
        }
        return tokens_.StartsStatement(nr) ? 0 : nr - 1;
    }

    // The object that the word means, as the walk for calls found it; null if it did not.
    [[nodiscard]] const CodeObject* Meaning(int nr) const {
        if (!caller_)
            return nullptr;
        const bool isMember = Word(nr - 1) == "." && tokens_.ContinuesStatement(nr);
        if (!isMember)
            if (const clsVariable* local = caller_->MyVars.Item(LowerCase(Word(nr))))
                return local;
        const Pos pos = tokens_.PosOf(nr);
        for (auto call = std::ranges::lower_bound(caller_->outgoing, pos, {}, &clsCall::CallPos);
             call != caller_->outgoing.end() && call->CallPos == pos; ++call)
            if (call->Type() == CallType::Really)
                return call->Parent;
        return nullptr;
    }

    [[nodiscard]] Doubt OfReceiver(int nr) const {
        Doubt doubt{DoubtKind::UnknownName, std::string(Word(nr)), {}};
        const CodeObject* const receiver = Meaning(nr);
        if (!receiver)
            return doubt;
        switch (receiver->Class()) {
            case ObjectClass::Variable:
                doubt.type = static_cast<const clsVariable*>(receiver)->DatenTyp();
                break;
            case ObjectClass::Prozedur:
                doubt.type = static_cast<const clsProzedur*>(receiver)->DatenTyp();
                break;
            case ObjectClass::Control:
                doubt.type = static_cast<const clsControl*>(receiver)->DatenTyp();
                break;
            default:
                doubt.kind = DoubtKind::NotInType;
                return doubt;
        }
        doubt.kind = KindOf(doubt.type);
        return doubt;
    }
    [[nodiscard]] DoubtKind KindOf(std::string_view type) const {
        if (type.empty() || type == "variant")
            return DoubtKind::Variant;
        if (type == "object" || type == "form" || type == "control" || type == "vb.form" || type == "vb.control")
            return DoubtKind::AnyObject;
        return IsTypeOf(projekt_.PublicNameSpace(), type) || IsTypeOf(modul_.PrivNameSpace, type)
                   ? DoubtKind::NotInType
                   : DoubtKind::UnknownType;
    }
    [[nodiscard]] static bool IsTypeOf(const NameSpace& nameSpace, std::string_view type) {
        const auto point = type.rfind('.');
        const clsSpaceName* const entry =
            nameSpace.Item(point == std::string_view::npos ? type : type.substr(point + 1));
        return entry && std::ranges::any_of(entry->Objects(), [](const CodeObject* object) {
                   return object->Class() == ObjectClass::Type || object->Class() == ObjectClass::Enum ||
                          object->Class() == ObjectClass::Modul;
               });
    }

    const clsProjekt& projekt_;
    const clsModul& modul_;
    const TokenTable& tokens_;
    const clsProzedur* caller_;
    int member_;
};

}  // namespace

Doubt DoubtOf(const clsProjekt& projekt, const Link& possibleCall) {
    const clsModul* const modul = ModuleOf(*possibleCall.from);
    if (!modul || !modul->tokens || possibleCall.from->Class() == ObjectClass::Modul)
        return {DoubtKind::Expression, {}, {}};
    return DoubtFinder(projekt, possibleCall).Find();
}

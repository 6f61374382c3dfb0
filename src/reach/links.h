// How one object of a project leads to another: the edges of its graph of calls, seen from objects instead of places.
//
// An edge of a declarations section starts in what is declared there: the constant of whose value it is a part, the
// variable or member of whose type. A member of a type or an enumeration also leads to that, which it cannot be
// without.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"

class clsProjekt;

enum class LinkKind : std::uint8_t {
    None,
    Call,          // a certain call
    PossibleCall,  // a possible one
    Use,           // of a type, an enumeration, a class or a library
    Member,        // from a member to its type or enumeration
};

struct Link {
    const CodeObject* from = nullptr;  // a procedure, or what is declared in a declarations section
    const CodeObject* to = nullptr;
    LinkKind kind = LinkKind::None;
    Pos pos = 0;  // of the word, in the module of `from`
    [[nodiscard]] bool IsCertain() const { return kind != LinkKind::PossibleCall; }
    bool operator==(const Link&) const = default;
};

/// The module that an object belongs to, or the module itself; null for those of libraries.
[[nodiscard]] const clsModul* ModuleOf(const CodeObject& object);

/// Valid for one generation of the project, whose calls must be known.
class Links {
public:
    explicit Links(const clsProjekt& projekt);

    /// Calls `use(link, number)` for each link that leaves the object, in the order of the code; the number is that of
    /// the target.
    template <class Use>
    void ForEachFrom(const CodeObject& object, const Use& use) const {
        if (object.Class() == ObjectClass::Prozedur)
            for (const clsCall& call : static_cast<const clsProzedur&>(object).outgoing)
                use(LinkOf(call, object), call.TargetNumber());
        for (const clsCall& call : InDeclaration(object))
            use(LinkOf(call, object), call.TargetNumber());
        if (const CodeObject* const owner = OwnerOf(object))
            use(Link{&object, owner, LinkKind::Member, object.DeclareStart}, owner->Number());
    }
    /// Calls `use(link)` for each link that leads to the object, in the order of the modules and of their code, uses
    /// and members last.
    template <class Use>
    void ForEachTo(const CodeObject& object, const Use& use) const {
        for (const clsCall* call : object.CalledByAll())
            use(LinkOf(*call, Source(*call)));
        for (const clsCall* call : object.UsedByAll())
            use(LinkOf(*call, Source(*call)));
        if (object.Class() == ObjectClass::Type)
            MembersTo(static_cast<const clsType&>(object), use);
        else if (object.Class() == ObjectClass::Enum)
            MembersTo(static_cast<const clsEnum&>(object), use);
    }
    /// What an edge starts in.
    [[nodiscard]] const CodeObject& Source(const clsCall& call) const;

    [[nodiscard]] const clsProjekt& Projekt() const { return projekt_; }

private:
    // Something declared, with the edges of its declaration, which are contiguous among those of its module.
    struct Holder {
        Pos start;
        std::uint32_t firstEdge;
        const CodeObject* object;
    };

    [[nodiscard]] static Link LinkOf(const clsCall& call, const CodeObject& from) {
        const LinkKind kind = call.Type() == CallType::Really  ? LinkKind::Call
                              : call.Type() == CallType::MayBe ? LinkKind::PossibleCall
                                                               : LinkKind::Use;
        return {&from, call.Parent, kind, call.CallPos};
    }
    /// The type or enumeration that an object is a member of.
    [[nodiscard]] static const CodeObject* OwnerOf(const CodeObject& object) {
        if (object.Class() != ObjectClass::Variable || object.myLibrary)
            return nullptr;
        const auto& variable = static_cast<const clsVariable&>(object);
        return variable.MyType ? static_cast<const CodeObject*>(variable.MyType) : variable.MyEnum;
    }
    template <class Owner, class Use>
    static void MembersTo(const Owner& owner, const Use& use) {
        if (!owner.myLibrary)
            for (const clsVariable* member : owner.MyVars)
                use(Link{member, &owner, LinkKind::Member, member->DeclareStart});
    }
    [[nodiscard]] std::span<const clsCall> InDeclaration(const CodeObject& object) const;
    void AddHolders(const clsModul& modul);

    const clsProjekt& projekt_;
    std::vector<Holder> holders_;                                   // those of one module together, by position
    std::vector<std::uint32_t> holderOf_;                           // by number: place in holders_ from 1, or 0
    std::vector<std::pair<std::uint32_t, std::uint32_t>> modules_;  // ranges in holders_; their numbers stand in
                                                                    // holderOf_ of the modules, from 1
};

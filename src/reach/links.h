// How one object of a project leads to another: the edges of its graph of calls, seen from objects instead of places.
//
// An edge of a declarations section starts in what is declared there: the constant of whose value it is a part, the
// variable or member of whose type. A member of a type or an enumeration also leads to that, which it cannot be
// without.
#pragma once

#include <cstdint>
#include <span>
#include <unordered_map>
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

    /// Calls `use(link)` for each link that leaves the object, in the order of the code.
    template <class Use>
    void ForEachFrom(const CodeObject& object, const Use& use) const {
        const CallGraph::Range range = leaving_[object.Number()];
        if (range.first < range.end)
            for (const clsCall& call : std::span(&Graph().EdgeAt(range.first), range.end - range.first))
                use(LinkOf(call, object));
        if (owners_[object.Number()] != 0)
            use(MemberLink(static_cast<const clsVariable&>(object)));
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

    // The same links by numbers of objects, for walks over most of them.

    /// Number of a link; one number stands for all links from members to their types.
    using Step = std::uint32_t;
    static constexpr Step kMemberStep = UINT32_MAX;
    /// The links that leave an object: edges, and as the last one that of a member to its type or enumeration.
    struct Leaving {
        CallGraph::Range edges;
        std::uint32_t owner = 0;  // number of the type or enumeration; 0 for none
    };
    [[nodiscard]] Leaving From(std::uint32_t object) const { return {leaving_[object], owners_[object]}; }
    /// Calls `use(target, step, isCertain)` for each link that leaves the object.
    template <class Use>
    void ForEachStep(std::uint32_t object, const Use& use) const {
        const Leaving leaving = From(object);
        for (Step step = leaving.edges.first; step < leaving.edges.end; ++step)
            use(Graph().TargetOf(step), step, !Graph().IsPossible(step));
        if (leaving.owner != 0)
            use(leaving.owner, kMemberStep, true);
    }
    /// What a step leads to that leaves `from`.
    [[nodiscard]] const CodeObject& TargetOfStep(Step step, const CodeObject& from) const {
        return step == kMemberStep ? *MemberLink(static_cast<const clsVariable&>(from)).to
                                   : *graph_.EdgeAt(step).Parent;
    }
    /// @param from  number of the object that the step starts at
    [[nodiscard]] Link LinkOfStep(Step step, std::uint32_t from, const CodeObject& to) const;

    class Origin {
    public:
        Origin() = default;
        Origin(std::uint32_t number, bool isCertain) : packed_(number << 1 | (isCertain ? 1U : 0U)) {}
        [[nodiscard]] std::uint32_t Number() const { return packed_ >> 1; }
        [[nodiscard]] bool IsCertain() const { return (packed_ & 1U) != 0; }

    private:
        std::uint32_t packed_ = 0;
    };
    /// What the links to an object leave, in the order of ForEachTo. The first call takes the time of a walk over all
    /// links; it is made by one thread at a time.
    [[nodiscard]] std::span<const Origin> OriginsOf(std::uint32_t number) const;

    [[nodiscard]] const clsProjekt& Projekt() const { return projekt_; }

private:
    // Something declared, with the first edge of its declaration, which are contiguous among those of its module.
    struct Holder {
        Pos start;
        Step firstEdge;
        const CodeObject* object;
    };
    using Holders = std::vector<Holder>;  // of one module, by position

    [[nodiscard]] static Link LinkOf(const clsCall& call, const CodeObject& from) {
        const LinkKind kind = call.Type() == CallType::Really  ? LinkKind::Call
                              : call.Type() == CallType::MayBe ? LinkKind::PossibleCall
                                                               : LinkKind::Use;
        return {&from, call.Parent, kind, call.CallPos};
    }
    [[nodiscard]] static Link MemberLink(const clsVariable& member) {
        const CodeObject* const owner = member.MyType ? static_cast<const CodeObject*>(member.MyType) : member.MyEnum;
        return {&member, owner, LinkKind::Member, member.DeclareStart};
    }
    template <class Owner, class Use>
    static void MembersTo(const Owner& owner, const Use& use) {
        if (!owner.myLibrary)
            for (const clsVariable* member : owner.MyVars)
                use(MemberLink(*member));
    }
    [[nodiscard]] const CallGraph& Graph() const { return graph_; }
    /// What an edge starts in.
    [[nodiscard]] const CodeObject& Source(const clsCall& call) const;
    [[nodiscard]] Holders FindHolders(const clsModul& modul);
    template <class Owners>
    void AddOwners(const Owners& owners);
    void FindOrigins() const;
    template <class Use>
    void ForEachNumbered(const Use& use) const;

    const clsProjekt& projekt_;
    const CallGraph& graph_;
    std::vector<CallGraph::Range> leaving_;  // by number of the object that the edges leave
    std::vector<std::uint32_t> owners_;      // by number of a member: that of its type or enumeration; 0 for all others
    std::unordered_map<const clsModul*, Holders> holders_;  // of the modules whose declarations have edges
    mutable std::vector<Origin> origins_;                   // by target; empty before they are asked for
    mutable std::vector<std::uint32_t> originsBegin_;       // by number of the target: place in origins_
};

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

    /// Calls `use(link)` for each link that leaves the object, in the order of the code.
    template <class Use>
    void ForEachFrom(const CodeObject& object, const Use& use) const {
        const std::uint32_t number = object.Number();
        if (const Range range = ranges_[number]; range.first < range.end) {
            const clsCall* const first = &EdgeAt(range.first);
            for (const clsCall& call : std::span(first, range.end - range.first))
                use(LinkOf(call, object));
        }
        if (owners_[number] != 0)
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

    // The same links by numbers of objects, for walks over all of them.

    /// Number of a link; one number stands for all links from members to their types.
    using Step = std::uint32_t;
    static constexpr Step kMemberStep = UINT32_MAX;
    /// Calls `use(target, step, isCertain)` for each link that leaves the object.
    template <class Use>
    void ForEachStep(std::uint32_t object, const Use& use) const {
        const Range range = ranges_[object];
        for (Step step = range.first; step < range.end; ++step)
            use(targets_[step] >> 1, step, (targets_[step] & 1U) == 0);
        if (owners_[object] != 0)
            use(owners_[object], kMemberStep, true);
    }
    /// @param from  number of the object that the step starts at
    [[nodiscard]] Link LinkOfStep(Step step, std::uint32_t from, const CodeObject& to) const;

    [[nodiscard]] const clsProjekt& Projekt() const { return projekt_; }

private:
    struct Range {
        Step first = 0;
        Step end = 0;
    };
    // Something declared, with the first edge of its declaration, which are contiguous among those of its module.
    struct Holder {
        Pos start;
        Step firstEdge;
        const CodeObject* object;
    };
    // The edges of a module are contiguous in memory.
    struct Stretch {
        Step firstEdge;
        const clsCall* first;
    };

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
    [[nodiscard]] const clsCall& EdgeAt(Step step) const;
    /// What an edge starts in.
    [[nodiscard]] const CodeObject& Source(const clsCall& call) const;
    void AddEdges();
    void AddHolders(const clsModul& modul, Step firstEdge);
    void AddOwners(const clsModul& modul);

    const clsProjekt& projekt_;
    std::vector<std::uint32_t> targets_;  // by step: twice the number of the target, and 1 for a possible call
    std::vector<Range> ranges_;           // by number of the object that the steps leave
    std::vector<std::uint32_t> owners_;   // by number of a member: that of its type or enumeration; 0 for all others
    std::vector<Stretch> stretches_;
    std::vector<Holder> holders_;         // those of one module together, by position
    std::vector<Range> holdersOf_;        // places in holders_
    std::vector<std::uint32_t> modules_;  // by number of a module: place in holdersOf_ from 1
};

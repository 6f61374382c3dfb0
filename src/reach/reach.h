// What the entry points of a project reach, certainly or possibly, and over which chain of calls and uses.
//
// Two walks, breadth first: one over certain links from certain entry points, one over all links from all. Each keeps
// for every object the link over which it was reached first, so that the chains are as short as any.
#pragma once

#include <cstdint>
#include <vector>

#include "model/clsProjekt.h"
#include "model/module_walk.h"
#include "reach/declared.h"
#include "reach/entry_points.h"
#include "reach/links.h"

/// The object that answers for this one: the procedure of an argument or local, itself for all others.
[[nodiscard]] const CodeObject& Answering(const CodeObject& object);

enum class ReachState : std::uint8_t {
    None,      // no entry point leads to it
    Possible,  // every chain has a possible call, or begins at a possible entry point
    Certain,
};

/// How an entry point leads to an object: the first link leaves the entry point, the last one reaches the object, and
/// each begins where the one before it ends.
struct Chain {
    const EntryPoint* entry = nullptr;  // null: there is none
    std::vector<Link> links;            // empty for the entry point itself
    [[nodiscard]] bool IsCertain() const;
};

/// Valid for one generation of the project, whose calls must be known.
class Reach {
public:
    explicit Reach(const clsProjekt& projekt, Declared declared = {});

    [[nodiscard]] const clsProjekt& Projekt() const { return links_.Projekt(); }
    /// Generation of the project that it was made for.
    [[nodiscard]] int Generation() const { return generation_; }
    [[nodiscard]] const Declared& TheDeclared() const { return declared_; }
    [[nodiscard]] const Links& TheLinks() const { return links_; }
    [[nodiscard]] const std::vector<CodeMarks>& Marks() const { return marks_; }

    /// All entry points; see EntryPointsOf.
    [[nodiscard]] const std::vector<EntryPoint>& EntryPoints() const { return entries_; }
    /// The object's own entry point; null if it is none.
    [[nodiscard]] const EntryPoint* EntryPointAt(const CodeObject& object) const {
        return EntryPointAt(object.Number());
    }
    [[nodiscard]] const EntryPoint* EntryPointAt(std::uint32_t number) const;

    /// Whether there is an answer for the object: procedures, variables and constants of modules, types and
    /// enumerations with their members. Of an argument or local the answers are those of its procedure.
    [[nodiscard]] static bool Covers(const CodeObject& object);
    [[nodiscard]] ReachState StateOf(const CodeObject& object) const { return StateOf(Answering(object).Number()); }
    /// By number of an object that answers for itself.
    [[nodiscard]] ReachState StateOf(std::uint32_t number) const {
        return certain_[number].step != kUnreached ? ReachState::Certain
               : any_[number].step != kUnreached   ? ReachState::Possible
                                                   : ReachState::None;
    }
    /// A shortest certain chain for an object that is certainly reached, a shortest one of all for one that is possibly
    /// reached, none for any other.
    [[nodiscard]] Chain ChainTo(const CodeObject& object) const;

    /// Calls `use` for each object that has answers of its own, in the order of AllModules and of ForEachDeclared.
    template <class Use>
    void ForEachObject(const Use& use) const {
        for (const clsModul* modul : Projekt().AllModules())
            ForEachDeclared(*modul, use);
    }

private:
    // How a walk came to an object.
    struct Arrival {
        std::uint32_t from = 0;
        Links::Step step = kUnreached;
    };
    static constexpr Links::Step kUnreached = UINT32_MAX - 1;
    static constexpr Links::Step kEntry = UINT32_MAX - 2;
    using Walked = std::vector<Arrival>;  // by number of the object

    [[nodiscard]] Walked Walk(bool certainOnly) const;
    [[nodiscard]] Chain ChainIn(const Walked& walked, const CodeObject& object) const;

    Declared declared_;
    Links links_;
    int generation_;
    std::vector<CodeMarks> marks_;
    std::vector<EntryPoint> entries_;
    std::vector<std::uint32_t> entryOf_;  // by number: place in entries_ from 1, or 0
    Walked certain_;
    Walked any_;
};

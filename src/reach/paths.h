// Questions about an object that walk the links from it or to it: ways to another object, what depends on it, what it
// keeps alive, which entry points lead to it.
#pragma once

#include <cstddef>
#include <vector>

#include "reach/reach.h"

/// A way from one object to another: each link begins where the one before it ends. It passes no object twice. Of
/// several calls between the same two objects it takes the first, and a certain one before a possible one.
struct ReachPath {
    std::vector<Link> links;
    [[nodiscard]] bool IsCertain() const;
};

/// The shortest way and further ones by length, of one length the certain before the possible; none if there is no way.
/// @param from, to  modules stand for all that they declare, types and enumerations for their members, too
/// @param most      number of ways at most
[[nodiscard]] std::vector<ReachPath> PathsBetween(const Links& links, const CodeObject& from, const CodeObject& to,
                                                  std::size_t most = 21);

/// An object that depends on another one.
struct Dependent {
    const CodeObject* object = nullptr;
    int distance = 0;  // number of links, at least 1
    Link link;         // the first one of a shortest way
};
struct Impact {
    /// One half of the answer. Objects and entry points by distance, those of one distance in the order of the walk;
    /// modules in the order in which they are first met.
    struct Part {
        std::vector<Dependent> objects;
        std::vector<const clsModul*> modules;  // forms among them
        std::vector<const EntryPoint*> entries;
    };
    Part certain;   // over certain links
    Part possible;  // the others, over links of which one is possible
};
/// What depends on an object, directly or over others. That of a module depends on anything that it declares, without
/// what it declares itself.
[[nodiscard]] Impact ImpactOf(const Reach& reach, const CodeObject& object);

/// What nothing would keep any more if the object did not exist, in the order of the walk: of a living object what is
/// reached over it alone, of a dead one what only it calls or uses, directly or over others. Entry points are kept.
[[nodiscard]] std::vector<const CodeObject*> DiesWith(const Reach& reach, const CodeObject& object);

/// An entry point that leads to an object.
struct EntryReaching {
    const EntryPoint* entry = nullptr;
    int distance = 0;        // number of links; 0 for the object itself
    bool isCertain = false;  // the entry point is certain, and a way from it, though perhaps a longer one
};
/// Certain ones first, then by distance.
[[nodiscard]] std::vector<EntryReaching> EntryPointsReaching(const Reach& reach, const CodeObject& object);

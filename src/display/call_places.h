// The places of the project that call or use an object, and the walk over them.
//
// Places refer to objects, so they last for one generation. What a list says about them is text.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "display/code_colours.h"
#include "display/local_uses.h"
#include "model/clsCall.h"
#include "shell/text_numbers.h"

class clsProjekt;
class clsTypeLib;

/// A place at which a procedure, or the declarations of a module, calls or uses something.
struct CallPlace {
    const CodeObject* owner = nullptr;   // the procedure, or the module
    const CodeObject* target = nullptr;  // what the place names
    Pos pos = 0;                         // in the module
    CallType type = CallType::Really;

    [[nodiscard]] const clsModul& Modul() const;
    [[nodiscard]] Pos Length() const;
    /// What a mark there means.
    [[nodiscard]] Colour What() const;
};

/// Calls `use` for each edge of any kind that counts as one to `object`, each once: those to the members of a type or
/// an enumeration, and to all that a module declares, controls excepted.
void ForEachEdgeTo(const clsProjekt& projekt, const CodeObject& object, const std::function<void(const clsCall&)>& use);

/// Calls `use` for each edge to a library or anything in it.
void ForEachEdgeInto(const clsProjekt& projekt, const clsTypeLib& library,
                     const std::function<void(const clsCall&)>& use);

/// All places that call or use an object, in the order of the modules and of their code. A local is named in its
/// procedure only, which must be known to `locals`. Those to a library are all that reach something in it.
[[nodiscard]] std::vector<CallPlace> ReferencesTo(const clsProjekt& projekt, const LocalUses& locals,
                                                  const CodeObject& object);
/// The places at which a module, with its procedures, calls or uses an object in a way that counts (Reaches); rising.
[[nodiscard]] std::vector<CallPlace> PlacesIn(const clsModul& caller, const CodeObject& object, CallType type);

/// What the list of references says about a place; texts in UTF-8.
struct ReferenceRow {
    std::string key;         // node key of the procedure or module
    std::string_view image;  // of that
    std::string where;       // its path
    int line = 0;
    std::string text;                           // the line of the source, without its indentation
    std::size_t nameStart = 0, nameLength = 0;  // of the target's name in it
    Text kind = Text::None;                     // Really, MayBe or Use
    std::string member;  // the accessor that is meant, where the object is its module: the line does not tell
};
/// @param places  of ReferencesTo
[[nodiscard]] std::vector<ReferenceRow> RowsOf(const std::vector<CallPlace>& places, const CodeObject& object);

/// Places that the user walks through one after the other, from one end to the other.
class PlaceWalk {
public:
    PlaceWalk() = default;
    explicit PlaceWalk(std::vector<CallPlace> places) : places_(std::move(places)) {}
    [[nodiscard]] const std::vector<CallPlace>& Places() const { return places_; }
    [[nodiscard]] int Count() const { return static_cast<int>(places_.size()); }
    /// The place shown, from 0; -1 before the first step.
    [[nodiscard]] int At() const { return at_; }
    /// False if there is no such place.
    bool GoTo(int at);
    void Step(int by);

private:
    std::vector<CallPlace> places_;
    int at_ = -1;
};

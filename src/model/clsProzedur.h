// A sub, function, property accessor, declare or event declaration.
#pragma once

#include <span>

#include "model/clsCollection.h"
#include "model/code_object.h"

class clsProzedur final : public CodeObject {
public:
    /// @param memory  where the collection of its variables lives
    clsProzedur(clsModul& owner, std::pmr::memory_resource* memory)
        : CodeObject(ObjectClass::Prozedur), MyVars(memory) {
        Modul = &owner;
    }

    /// " [Get]", " [Let]", " [Set]" after the name of an accessor in code paths; empty for other kinds.
    [[nodiscard]] std::string_view AccessorSuffix() const;
    [[nodiscard]] std::string_view DatenTyp() const { return type.View(); }
    /// The kind in words: "sub", "property get", or the words of the source for a kind without a word of its own.
    [[nodiscard]] std::string_view ProzedurTypText() const {
        const std::string_view known = TextOf(ProzedurTyp);
        return known.empty() ? otherKind.View() : known;
    }
    [[nodiscard]] bool IsProperty() const {
        return ProzedurTyp >= ProcKind::PropertyGet && ProzedurTyp <= ProcKind::OtherProperty;
    }

    /// Calls it makes, of both certainties.
    [[nodiscard]] OutgoingEdges CallsAll() const { return {outgoing, OutgoingEdges::Which::Calls}; }
    /// Types, classes and libraries it uses.
    [[nodiscard]] OutgoingEdges UsesAll() const { return {outgoing, OutgoingEdges::Which::Uses}; }

    ProcKind ProzedurTyp = ProcKind::Sub;
    bool isDeclare = false;
    bool IsEvent = false;  // handles an event, or declares one
    bool IsUserEvent = false;
    Name otherKind;           // words of a kind that has none of its own
    Name accessorKey;         // of an accessor: its key in the collections of its module
    Name type;                // data type of the result, lower case
    int DeclareStartTNr = 0;  // first and last token; 0 for declares
    int DeclareEndTNr = 0;
    Pos NamePos = 0;
    Pos ArgListStart = 0;  // outer brackets of the argument list
    Pos ArgListEnd = 0;

    clsCollection<clsVariable> MyVars;  // arguments, locals, result; keyed by name

    std::span<const clsCall> outgoing;  // what the graph of calls has of it
};

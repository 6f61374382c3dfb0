// A sub, function, property accessor, declare or event declaration.
#pragma once

#include "model/clsCollection.h"
#include "model/code_object.h"

class clsProzedur final : public CodeObject {
public:
    explicit clsProzedur(clsModul& owner);
    ~clsProzedur() override;

    /// The three accessors of a property have three paths and one name.
    [[nodiscard]] std::string CodePathOrg() const override;
    /// The name, and behind it the accessor's suffix.
    [[nodiscard]] Name LocalKey() const override;
    /// " [Get]", " [Let]", " [Set]" behind the name of an accessor; empty for other kinds.
    [[nodiscard]] std::string_view AccessorSuffix() const;
    [[nodiscard]] std::string_view GetImageKey() const override;
    [[nodiscard]] std::string_view DatenTyp() const { return type.View(); }
    /// The kind in words: "sub", "property get", or the words of the source where they are none of the known.
    [[nodiscard]] std::string_view ProzedurTypText() const {
        const std::string_view known = TextOf(ProzedurTyp);
        return known.empty() ? otherKind.View() : known;
    }
    [[nodiscard]] bool IsProperty() const {
        return ProzedurTyp >= ProcKind::PropertyGet && ProzedurTyp <= ProcKind::OtherProperty;
    }

    ProcKind ProzedurTyp = ProcKind::Sub;
    Name otherKind;           // words of a kind that is none of the known
    Name type;                // data type of the result, lower case
    int DeclareStartTNr = 0;  // first and last token; 0 for declares
    int DeclareEndTNr = 0;
    Pos NamePos = 0;
    Pos ArgListStart = 0;  // outer brackets of the argument list
    Pos ArgListEnd = 0;
    std::string_view TypenZeichen;
    bool isDeclare = false;
    bool IsEvent = false;  // handles an event, or declares one
    bool IsUserEvent = false;
    bool LocalCallsChecked = false;

    /// Calls it makes, of both certainties.
    [[nodiscard]] const OutgoingEdges& CallsAll() const { return calls_; }
    /// Types, classes and libraries it uses.
    [[nodiscard]] const OutgoingEdges& UsesAll() const { return uses_; }
    [[nodiscard]] OutgoingEdges& Outgoing(bool uses) { return uses ? uses_ : calls_; }

    clsCollection<clsVariable> MyVars;  // arguments, locals, result; keyed by name

private:
    OutgoingEdges calls_, uses_;
    [[no_unique_address]] Counted<&ObjectCounts::prozedur> counted_;
};

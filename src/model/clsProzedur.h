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
    [[nodiscard]] std::string_view ProzedurTyp() const { return kind; }
    [[nodiscard]] bool IsProperty() const { return ProzedurTyp().starts_with("property"); }

    std::string_view kind;    // "sub", "function", "property get", "property let", "property set"; a lasting text
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

    OutgoingEdges CallsAll;  // calls it makes, of both certainties
    OutgoingEdges UsesAll;   // types, classes and libraries it uses

    clsCollection<clsVariable> MyVars;  // arguments, locals, result; keyed by name

private:
    [[no_unique_address]] Counted<&ObjectCounts::prozedur> counted_;
};

// Why an object is alive or not, and whether it can be removed; as data, without words.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "reach/reach.h"

enum class ReasonKind : std::uint8_t {
    None,          // there is no answer for the object
    EntryPoint,    // it is a certain entry point
    Kept,          // an entry point keeps it over certain steps
    OnlyPossible,  // reached over possible calls, or from a possible entry point, only
    NoCaller,      // nothing calls or uses it
    DeadCallers,   // only what nothing reaches calls or uses it
    Ring,          // only objects that call each other, itself among them, call it
};

/// What made a call only possible.
enum class DoubtKind : std::uint8_t {
    None,
    Variant,        // a member of a Variant
    AnyObject,      // a member of an Object, Form or Control
    UnknownType,    // a member of a type that is not known
    NotInType,      // a member that a known type does not have
    With,           // a member of the object of a With block
    Expression,     // a member of what an expression gives
    UnknownName,    // a member of a name that is not known
    NamedInString,  // no call: the name is in a string literal
};
struct Doubt {
    DoubtKind kind = DoubtKind::None;
    std::string receiver;  // the word before the point, as spelled; empty where there is none
    std::string type;      // its data type, lower case
};

struct Reason {
    ReasonKind kind = ReasonKind::None;
    Chain chain;                             // of EntryPoint, Kept and OnlyPossible
    int firstPossible = -1;                  // of OnlyPossible: the link in `chain`; -1: its entry point is in doubt
    Doubt doubt;                             // of OnlyPossible
    std::vector<const CodeObject*> objects;  // the dead callers, or the members of the ring: itself first
    bool keptByRule = false;                 // nothing reaches it, but it is not marked as dead, because members of
                                             // classes and user controls, and declared events, count as living
};

enum class Grade : std::uint8_t { Living, Sure, Likely, CannotTell };

/// Why a grade is not better. Those before the last two make it likely, the others leave it open.
enum class GradeReason : std::uint8_t {
    None,  // of Living and Sure
    // likely
    ShiftsMembers,     // members of its enumeration after it count on from it
    ChangesLayout,     // its type keeps other members, and its layout may matter
    InterfaceMember,   // classes implement it, so it goes with their procedures
    DesignerProperty,  // a property of a user control, which a form may set in its designer
    OnlyForeignTypes,  // possible calls lead to it, but from types that are none of the project
    UsedByLikely,      // used by an object of this grade, which is `of`
    // cannot tell
    PossibleCalls,    // possible calls lead to it
    NamedInString,    // a string literal names it
    DefaultMember,    // called without its name
    PassedOut,        // a member of a type that Declare statements take
    NotCompiled,      // code left out by conditional compilation names it
    NamedInCode,      // the code names it at a place where no call was found
    UnreadModules,    // files of the project could not be read
    UsedByLeftAlone,  // used by an object that is to be left alone, which is `of`
    UsedByUncertain,  // used by an object of this grade, which is `of`
};

struct Grading {
    Grade grade = Grade::Living;
    GradeReason reason = GradeReason::None;
    const CodeObject* of = nullptr;
    const clsModul* modul = nullptr;  // the place that the reason speaks of; null for none
    Pos pos = 0;
    const Declaration* leftAlone = nullptr;  // what the user says about it; null for nothing
};

class DeadObjects;

/// Reasons and grades of all objects of a project. The walk over what is dead is made when it is first needed.
/// `reach` outlives this object.
class Reasons {
public:
    explicit Reasons(const Reach& reach);
    ~Reasons();
    Reasons(const Reasons&) = delete;
    Reasons& operator=(const Reasons&) = delete;

    [[nodiscard]] const Reach& TheReach() const { return reach_; }
    [[nodiscard]] Reason ReasonOf(const CodeObject& object) const;
    /// What is certainly reached is Living.
    [[nodiscard]] Grading GradeOf(const CodeObject& object) const;

private:
    [[nodiscard]] const DeadObjects& TheDead() const;
    [[nodiscard]] Grading GradeOfPossible(const CodeObject& object) const;

    const Reach& reach_;
    mutable std::unique_ptr<DeadObjects> dead_;
};

/// What makes a possible call only possible.
[[nodiscard]] Doubt DoubtOf(const clsProjekt& projekt, const Link& possibleCall);

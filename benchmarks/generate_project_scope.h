// One procedure while it is written: the names it can reach, and values, conditions and calls made of them.
// A value that needs a local variable declares it on the way, so that nearly every local is used somewhere.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "generate_project_plan.h"

namespace generate {

class Scope {
public:
    Scope(Plan& plan, int module, Procedure& procedure);

    /// An expression of the type. `depth` counts how far it is nested in another; deep ones are simple.
    std::string Value(Type type, int depth = 0);
    std::string Condition(int depth = 0);
    /// Something of the type that can stand left of "=".
    std::string Target(Type type);
    /// A whole number that a loop has set, or a small literal: fit as the index of an array.
    std::string Index();

    /// A statement that calls a procedure of this or a standard module; empty when none was found.
    std::string CallStatement();
    /// Assigns what a function gives, whatever its type; empty when none was found.
    std::string CallAssignment();
    /// A statement on an object: a method, a property set, a member of a record. Empty when none was found.
    std::string ObjectStatement();
    /// One with a control of the form or user control. Empty when there is none.
    std::string ControlStatement();
    /// A member with its arguments, such as "Load lngID" or "Caption = strText", for a With block on `type`.
    std::string MemberStatement(Type type);
    std::string Arguments(const std::vector<Parameter>& parameters, int depth);

    /// The name of a variable of exactly that type; declares one when there is none.
    std::string Exact(Type type, bool isArray = false);
    /// A variable of a class or record, of which members can be used. The type is undefined when none was found.
    std::optional<Variable> WithSubject();
    /// A new local variable. `wanted` is used when it is free.
    Variable& NewLocal(Type type, bool isArray = false, std::string_view wanted = {});
    /// A counter that is in no other loop at the moment; loops give it back with LeaveLoop.
    std::string EnterLoop(Type type);
    void LeaveLoop() { counters_.pop_back(); }
    /// An existing variable of that type, or none.
    const Variable* Find(Type type, bool isForWriting, bool isArray = false);

    /// Lines that have to stand before the statement that was made last, such as a Set of a new object.
    std::vector<std::string> TakeBefore();
    [[nodiscard]] const std::vector<Variable>& Locals() const { return locals_; }
    [[nodiscard]] const Module& Owner() const { return module_; }
    [[nodiscard]] const Procedure& Self() const { return procedure_; }

    /// A literal in quotes, now and then with a doubled quote or an apostrophe in it.
    std::string StringLiteral();
    std::string NumberLiteral();
    /// A literal that goes on in the middle of a message, such as " of the invoice ".
    std::string MessagePart();

private:
    struct Found {
        int module = -1;
        Procedure* procedure = nullptr;
    };

    std::string SimpleValue(Type type);
    // The same, but no literal: for the arguments of functions that would be silly with one.
    std::string NamedValue(Type type);
    std::string WholeNumber(Type type, int depth);
    std::string Text(int depth);
    std::string Fraction(Type type, int depth);
    std::string EnumerationMember(int enumeration);
    std::string Element(const Variable& variable);
    /// A member of a record in reach that has the type, as "udtOrder.Number"; empty when there is none.
    std::string RecordMember(Type type);
    std::string CallValue(Type type, int depth);
    std::string ObjectValue(Type type, int depth);
    std::string ControlValue(Type type);
    std::string Call(const Found& found, int depth, bool isStatement);
    /// A procedure that `isWanted` accepts, rather one that nobody calls yet.
    template <class Wanted>
    Found PickFrom(int module, Wanted isWanted);
    std::string LocalName(Type type);
    std::string ObjectOf(int classModule);
    [[nodiscard]] bool MayUse(int enumeration) const;
    [[nodiscard]] const Module& At(int module) const { return plan_.modules[static_cast<std::size_t>(module)]; }

    Plan& plan_;
    Random& random_;
    int position_;
    Module& module_;
    Procedure& procedure_;
    std::vector<Variable> locals_;  // the parameters first
    NameSet names_;
    std::vector<std::string> counters_;
    std::vector<std::string> before_;
};

}  // namespace generate

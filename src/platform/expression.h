// Evaluator for the constant expressions of #If and #Const with VBScript's rules: values are Empty, Null, Booleans
// (True is -1), numbers, strings and opaque dates; an undefined name is Empty.
//
// Precedence, highest first: ^, unary minus, * /, \, Mod, + -, &, comparisons (= <> < > <= >=; Is is not supported),
// Not, And, Or, Xor, Eqv, Imp. Texts are compared without regard to case.
#pragma once

#include <memory>
#include <string>
#include <string_view>

class ConstantExpressions {
public:
    ConstantExpressions();
    ~ConstantExpressions();
    ConstantExpressions(ConstantExpressions&&) noexcept;
    ConstantExpressions& operator=(ConstantExpressions&&) noexcept;

    struct Result {
        std::string text;   // as from VBScript's CStr: "True", "False", "-1", "0.5", "" for Empty; "Null" for Null
        std::string error;  // what is wrong, in plain English; empty if there is no error
        // VBScript's error number: 1002 syntax error, 13 type mismatch, 11 division by zero, 6 overflow, 5 invalid
        // argument of "^", 14 text too long
        int number = 0;
        [[nodiscard]] bool Ok() const { return number == 0; }
    };

    /// Removes all names.
    void Reset();
    /// Evaluates `value` and binds the result to `name`; after an error the name stays unbound.
    Result Define(std::string_view name, std::string_view value);
    /// Value of an expression; a blank one is Empty. An expression nested more than 200 levels deep is a syntax error.
    [[nodiscard]] Result Evaluate(std::string_view expression) const;

private:
    struct Names;
    std::unique_ptr<Names> names_;
};

// Evaluator for the constant expressions of #If and #Const, in the manner of VBScript: values are Empty,
// Null, Booleans (True is -1), numbers, strings and opaque dates; an undefined name is Empty.
//
// Precedence, highest first: ^, unary minus, * /, \, Mod, + -, &, comparisons (= <> < > <= >= Is left out),
// Not, And, Or, Xor, Eqv, Imp. Texts are taken without regard to case.
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
        std::string text;   // as VBScript's CStr gives it: "True", "False", "-1", "0.5", "" for Empty; "Null" for Null
        std::string error;  // what is wrong, in plain English; empty when all is well
        // VBScript's error number: 1002 syntax error, 13 type mismatch, 11 division by zero, 6 overflow,
        // 5 invalid argument of "^", 14 a text beyond all measure
        int number = 0;
        [[nodiscard]] bool Ok() const { return number == 0; }
    };

    /// Forgets all names.
    void Reset();
    /// Evaluates `value` and binds the result to `name`; on an error nothing is bound.
    Result Define(std::string_view name, std::string_view value);
    /// Value of an expression; a blank one is Empty. Depth is bounded: an expression nested over 200 levels
    /// is a syntax error.
    [[nodiscard]] Result Evaluate(std::string_view expression) const;

private:
    struct Names;
    std::unique_ptr<Names> names_;
};

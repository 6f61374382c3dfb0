// Values of constant expressions, and the operators of VBScript on them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

struct ExpressionValue {
    enum class Kind { Empty, Null, Boolean, Number, Text, Date };
    Kind kind = Kind::Empty;
    double number = 0;  // -1 or 0 for Booleans, the value of numbers
    std::string text;   // of texts and dates

    static ExpressionValue Null() { return {Kind::Null, 0, {}}; }
    static ExpressionValue Boolean(bool value) { return {Kind::Boolean, value ? -1.0 : 0.0, {}}; }
    static ExpressionValue Number(double value) { return {Kind::Number, value, {}}; }
    static ExpressionValue Text(std::string value) { return {Kind::Text, 0, std::move(value)}; }
    static ExpressionValue Date(std::string_view value) { return {Kind::Date, 0, std::string(value)}; }

    /// "True", "-1", "0.5"; "" for Empty and "Null" for Null.
    [[nodiscard]] std::string AsText() const;
};

/// The tens digit of each value is the precedence.
enum class ExpressionOperator {
    Bracket = 0,
    Imp = 10,
    Eqv = 20,
    Xor = 30,
    Or = 40,
    And = 50,
    Not = 60,
    Equal = 70,
    NotEqual,
    Less,
    Greater,
    LessOrEqual,
    GreaterOrEqual,
    Join = 80,
    Add = 90,
    Subtract,
    Mod = 100,
    IntegerDivide = 110,
    Multiply = 120,
    Divide,
    Minus = 130,
    Plus,
    Power = 140,
};

enum ExpressionError {
    kInvalidArgument = 5,
    kOverflow = 6,
    kDivisionByZero = 11,
    kTypeMismatch = 13,
    kOutOfStringSpace = 14,
    kSyntaxError = 1002,
};

/// Maximum length of a text. #Const names can double a text again and again; real constants are far shorter.
inline constexpr std::size_t kMaxExpressionText = 65536;

/// Applies operators. After a failure it keeps the first error and continues with an arbitrary value.
class ExpressionComputer {
public:
    /// 0, or the number of the first failure.
    [[nodiscard]] int Error() const { return error_; }
    void Fail(ExpressionError error) {
        if (error_ == 0)
            error_ = error;
    }

    [[nodiscard]] ExpressionValue Apply(ExpressionOperator prefix, ExpressionValue operand);
    [[nodiscard]] ExpressionValue Apply(ExpressionOperator op, ExpressionValue left, const ExpressionValue& right);

private:
    double NumberOf(const ExpressionValue& value);
    std::int32_t LongOf(const ExpressionValue& value);
    ExpressionValue Arithmetic(ExpressionOperator op, double left, double right);
    ExpressionValue DivideWhole(ExpressionOperator op, std::int64_t left, std::int64_t right);
    ExpressionValue Join(ExpressionValue left, const ExpressionValue& right);
    ExpressionValue Compare(ExpressionOperator op, const ExpressionValue& left, const ExpressionValue& right);
    ExpressionValue Logic(ExpressionOperator op, const ExpressionValue& left, const ExpressionValue& right);

    int error_ = 0;
};

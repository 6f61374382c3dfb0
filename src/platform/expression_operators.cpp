#include "platform/expression_operators.h"

#include <cmath>
#include <optional>

#include "platform/basic_number.h"
#include "platform/code_page.h"

using Value = ExpressionValue;
using Kind = ExpressionValue::Kind;
using Op = ExpressionOperator;

std::string ExpressionValue::AsText() const {
    switch (kind) {
        case Kind::Empty:
            return {};
        case Kind::Null:
            return "Null";
        case Kind::Boolean:
            return number != 0 ? "True" : "False";
        case Kind::Number:
            return TextOfNumber(number);
        case Kind::Text:
        case Kind::Date:
            return text;
    }
    return {};
}

Value ExpressionComputer::Apply(Op prefix, Value operand) {
    if (operand.kind == Kind::Null)
        return operand;
    if (prefix == Op::Not) {
        if (operand.kind == Kind::Boolean)
            return Value::Boolean(operand.number == 0);
        return Value::Number(~LongOf(operand));
    }
    const double number = NumberOf(operand);
    return Value::Number(prefix == Op::Minus ? -number : number);
}

Value ExpressionComputer::Apply(Op op, Value left, const Value& right) {
    if (op <= Op::And)
        return Logic(op, left, right);
    if (op <= Op::GreaterOrEqual)
        return Compare(op, left, right);
    const auto isText = [](const Value& value) { return value.kind == Kind::Text || value.kind == Kind::Empty; };
    const bool joins = left.kind == Kind::Text ? isText(right) : right.kind == Kind::Text && isText(left);
    if (op == Op::Join || (op == Op::Add && joins))
        return Join(std::move(left), right);
    if (left.kind == Kind::Null || right.kind == Kind::Null)
        return Value::Null();
    if (op == Op::Mod || op == Op::IntegerDivide) {
        const std::int32_t dividend = LongOf(left);
        return DivideWhole(op, dividend, LongOf(right));
    }
    const double first = NumberOf(left);
    return Arithmetic(op, first, NumberOf(right));
}

double ExpressionComputer::NumberOf(const Value& value) {
    if (value.kind == Kind::Text) {
        if (const std::optional<double> number = NumberOfText(value.text))
            return *number;
        Fail(kTypeMismatch);
    } else if (value.kind == Kind::Date) {
        Fail(kTypeMismatch);
    }
    return value.number;
}

/// Rounds to the nearest whole number, halves to the even one, as VBScript does.
std::int32_t ExpressionComputer::LongOf(const Value& value) {
    const double number = std::nearbyint(NumberOf(value));
    if (number >= INT32_MIN && number <= INT32_MAX)
        return static_cast<std::int32_t>(number);
    Fail(kOverflow);
    return 0;
}

Value ExpressionComputer::Arithmetic(Op op, double left, double right) {
    if (op == Op::Divide && right == 0) {
        Fail(kDivisionByZero);
        return {};
    }
    const double result = op == Op::Add        ? left + right
                          : op == Op::Subtract ? left - right
                          : op == Op::Multiply ? left * right
                          : op == Op::Divide   ? left / right
                                               : std::pow(left, right);
    if (std::isfinite(result))
        return Value::Number(result);
    // "^" rejects a negative base with a fractional exponent, and 0 with a negative exponent.
    Fail(std::isnan(result) || (op == Op::Power && left == 0) ? kInvalidArgument : kOverflow);
    return {};
}

Value ExpressionComputer::DivideWhole(Op op, std::int64_t left, std::int64_t right) {
    if (right == 0) {
        Fail(kDivisionByZero);
        return {};
    }
    const std::int64_t result = op == Op::Mod ? left % right : left / right;
    if (result > INT32_MAX)
        Fail(kOverflow);
    return Value::Number(static_cast<double>(result));
}

Value ExpressionComputer::Join(Value left, const Value& right) {
    if (left.kind == Kind::Null && right.kind == Kind::Null)
        return left;
    // Appends to the left text in place, so that a long chain of "&" takes linear time.
    std::string text;
    if (left.kind == Kind::Text)
        text = std::move(left.text);
    else if (left.kind != Kind::Null)
        text = left.AsText();
    if (right.kind != Kind::Null)
        text += right.kind == Kind::Text ? right.text : right.AsText();
    if (text.size() > kMaxExpressionText) {
        Fail(kOutOfStringSpace);
        return {};
    }
    return Value::Text(std::move(text));
}

Value ExpressionComputer::Compare(Op op, const Value& left, const Value& right) {
    if (left.kind == Kind::Null || right.kind == Kind::Null)
        return Value::Null();
    const auto isNumber = [](const Value& value) { return value.kind == Kind::Number || value.kind == Kind::Boolean; };
    int order = 0;
    if (left.kind == Kind::Date || right.kind == Kind::Date) {
        // Dates are opaque texts, so two of them can only be compared for equality.
        if (left.kind != right.kind || (op != Op::Equal && op != Op::NotEqual))
            Fail(kTypeMismatch);
        order = left.text.compare(right.text);
    } else if (left.kind != Kind::Text && right.kind != Kind::Text) {
        order = left.number < right.number ? -1 : left.number > right.number;
    } else if (isNumber(left)) {
        order = -1;
    } else if (isNumber(right)) {
        order = 1;
    } else {
        order = LowerCase(left.text).compare(LowerCase(right.text));
    }
    switch (op) {
        case Op::Equal:
            return Value::Boolean(order == 0);
        case Op::NotEqual:
            return Value::Boolean(order != 0);
        case Op::Less:
            return Value::Boolean(order < 0);
        case Op::Greater:
            return Value::Boolean(order > 0);
        case Op::LessOrEqual:
            return Value::Boolean(order <= 0);
        default:
            return Value::Boolean(order >= 0);
    }
}

/// Combines the operands bit by bit. With one Null operand the result is Null unless the other operand alone decides
/// it.
Value ExpressionComputer::Logic(Op op, const Value& left, const Value& right) {
    const bool leftIsNull = left.kind == Kind::Null;
    const bool rightIsNull = right.kind == Kind::Null;
    const auto result = [&](std::int32_t bits) {
        const bool isBoolean =
            (leftIsNull || left.kind == Kind::Boolean) && (rightIsNull || right.kind == Kind::Boolean);
        return isBoolean ? Value::Boolean(bits != 0) : Value::Number(bits);
    };
    const std::int32_t a = leftIsNull ? 0 : LongOf(left);
    const std::int32_t b = rightIsNull ? 0 : LongOf(right);
    if (leftIsNull || rightIsNull) {
        const std::int32_t known = leftIsNull ? b : op == Op::Imp ? ~a : a;
        const bool decides = op == Op::And ? known == 0 : (op == Op::Or || op == Op::Imp) && known != 0;
        return decides && !(leftIsNull && rightIsNull) ? result(known) : Value::Null();
    }
    switch (op) {
        case Op::And:
            return result(a & b);
        case Op::Or:
            return result(a | b);
        case Op::Xor:
            return result(a ^ b);
        case Op::Eqv:
            return result(~(a ^ b));
        default:
            return result(~a | b);
    }
}

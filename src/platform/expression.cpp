// One pass from left to right with an operand stack and an operator stack. An operator stays on its stack until one of
// lower precedence follows; brackets and prefix operators are kept there as well, so nothing recurses. After a failed
// computation the pass continues, because a syntax error further right takes precedence over it.

#include "platform/expression.h"

#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/ascii.h"
#include "platform/basic_number.h"
#include "platform/code_page.h"
#include "platform/expression_operators.h"

namespace {

using Value = ExpressionValue;
using Op = ExpressionOperator;
using NameTable = std::unordered_map<std::string, Value>;

constexpr int kMaxNesting = 200;

std::string_view MessageOf(int error) {
    switch (error) {
        case kInvalidArgument:
            return "Invalid procedure call or argument";
        case kOverflow:
            return "Overflow";
        case kDivisionByZero:
            return "Division by zero";
        case kTypeMismatch:
            return "Type mismatch";
        case kOutOfStringSpace:
            return "Out of string space";
        default:
            return "Syntax error";
    }
}

int PrecedenceOf(Op op) {
    return static_cast<int>(op) / 10;
}
bool IsPrefix(Op op) {
    return op == Op::Not || op == Op::Minus || op == Op::Plus;
}

bool IsNameStart(char c) {
    const char lower = ascii::Lower(c);
    return (lower >= 'a' && lower <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

/// Length of the name at the start of `text`.
std::size_t NameLength(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && (IsNameStart(text[length]) || text[length] == '_' || ascii::IsDigit(text[length])))
        ++length;
    return length;
}

struct Spelling {
    std::string_view text;
    Op op;
};

constexpr Spelling kWords[]{{"and", Op::And}, {"or", Op::Or},   {"not", Op::Not}, {"xor", Op::Xor},
                            {"eqv", Op::Eqv}, {"imp", Op::Imp}, {"mod", Op::Mod}};

// Longer spellings come first. VBScript also accepts "=<" and "=>".
constexpr Spelling kSigns[]{{"<>", Op::NotEqual},
                            {"<=", Op::LessOrEqual},
                            {"=<", Op::LessOrEqual},
                            {">=", Op::GreaterOrEqual},
                            {"=>", Op::GreaterOrEqual},
                            {"=", Op::Equal},
                            {"<", Op::Less},
                            {">", Op::Greater},
                            {"&", Op::Join},
                            {"+", Op::Add},
                            {"-", Op::Subtract},
                            {"*", Op::Multiply},
                            {"/", Op::Divide},
                            {"\\", Op::IntegerDivide},
                            {"^", Op::Power}};

std::optional<Op> OperatorOfWord(std::string_view lowerWord) {
    for (const Spelling& spelling : kWords)
        if (spelling.text == lowerWord)
            return spelling.op;
    return {};
}

std::optional<Value> ConstantOfWord(std::string_view lowerWord) {
    if (lowerWord == "true" || lowerWord == "false")
        return Value::Boolean(lowerWord == "true");
    if (lowerWord == "empty")
        return Value{};
    if (lowerWord == "null")
        return Value::Null();
    return {};
}

class Reader {
public:
    Reader(std::string_view text, const NameTable& names) : text_(text), names_(names) {}

    /// Returns an error number, or 0 and the value.
    int Read(Value& value) {
        bool wantsOperand = true;
        for (SkipBlanks(); pos_ < text_.size(); SkipBlanks()) {
            const bool isRight = wantsOperand ? ReadOperandOrPrefix(wantsOperand) : ReadOperatorOrBracket(wantsOperand);
            if (!isRight || nesting_ > kMaxNesting)
                return kSyntaxError;
        }
        if (wantsOperand)
            return kSyntaxError;
        Reduce(1);
        if (!operators_.empty())
            return kSyntaxError;
        value = std::move(operands_.back());
        return computer_.Error();
    }

private:
    void SkipBlanks() { pos_ = text_.size() - ascii::TrimLeft(text_.substr(pos_)).size(); }

    std::string TakeLowerWord() {
        const std::size_t length = NameLength(text_.substr(pos_));
        std::string word = LowerCase(text_.substr(pos_, length));
        pos_ += length;
        return word;
    }

    void Push(Op op) {
        operators_.push_back(op);
        nesting_ += IsPrefix(op) || op == Op::Bracket;
    }

    /// Applies the stacked operators of at least `precedence`, back to the last open bracket.
    void Reduce(int precedence) {
        while (!operators_.empty() && PrecedenceOf(operators_.back()) >= precedence) {
            const Op op = operators_.back();
            operators_.pop_back();
            Value right = std::move(operands_.back());
            operands_.pop_back();
            if (IsPrefix(op)) {
                --nesting_;
                operands_.push_back(computer_.Apply(op, std::move(right)));
            } else {
                Value left = std::move(operands_.back());
                operands_.back() = computer_.Apply(op, std::move(left), right);
            }
        }
    }

    bool ReadOperandOrPrefix(bool& wantsOperand) {
        const char c = text_[pos_];
        if (c == '(' || c == '-' || c == '+') {
            ++pos_;
            Push(c == '(' ? Op::Bracket : c == '-' ? Op::Minus : Op::Plus);
            return true;
        }
        if (IsNameStart(c)) {
            const std::string word = TakeLowerWord();
            if (const std::optional<Op> op = OperatorOfWord(word)) {
                Push(*op);
                return *op == Op::Not;
            }
            std::optional<Value> constant = ConstantOfWord(word);
            const auto name = names_.find(word);
            operands_.push_back(constant ? *std::move(constant) : name != names_.end() ? name->second : Value{});
        } else if (c == '"') {
            std::string value;
            if (!TakeQuoted(value))
                return false;
            operands_.push_back(Value::Text(std::move(value)));
        } else if (c == '#') {
            const std::size_t end = text_.find('#', pos_ + 1);
            if (end == std::string_view::npos)
                return false;
            const std::string_view date = ascii::Trim(text_.substr(pos_ + 1, end - pos_ - 1));
            if (date.empty())
                return false;
            operands_.push_back(Value::Date(date));
            pos_ = end + 1;
        } else {
            const NumberRead read = ReadNumber(text_.substr(pos_));
            if (read.length == 0)
                return false;
            if (read.overflows)
                computer_.Fail(kOverflow);
            operands_.push_back(Value::Number(read.overflows ? 0 : read.number));
            pos_ += read.length;
        }
        wantsOperand = false;
        return true;
    }

    bool TakeQuoted(std::string& value) {
        for (++pos_;;) {
            const std::size_t quote = text_.find('"', pos_);
            if (quote == std::string_view::npos)
                return false;
            value += text_.substr(pos_, quote - pos_);
            pos_ = quote + 1;
            if (pos_ == text_.size() || text_[pos_] != '"')
                break;
            value += '"';
            ++pos_;
        }
        if (value.size() > kMaxExpressionText) {
            computer_.Fail(kOutOfStringSpace);
            value.clear();
        }
        return true;
    }

    bool ReadOperatorOrBracket(bool& wantsOperand) {
        if (text_[pos_] == ')') {
            ++pos_;
            Reduce(1);
            if (operators_.empty())
                return false;
            operators_.pop_back();
            --nesting_;
            return true;
        }
        const std::optional<Op> op = TakeBinaryOperator();
        if (!op)
            return false;
        Reduce(PrecedenceOf(*op));
        Push(*op);
        wantsOperand = true;
        return true;
    }

    std::optional<Op> TakeBinaryOperator() {
        if (IsNameStart(text_[pos_])) {
            const std::optional<Op> op = OperatorOfWord(TakeLowerWord());
            return op == Op::Not ? std::nullopt : op;
        }
        for (const Spelling& spelling : kSigns) {
            if (text_.substr(pos_).starts_with(spelling.text)) {
                pos_ += spelling.text.size();
                return spelling.op;
            }
        }
        return {};
    }

    std::string_view text_;
    const NameTable& names_;
    std::size_t pos_ = 0;
    std::vector<Value> operands_;
    std::vector<Op> operators_;
    int nesting_ = 0;  // open brackets and stacked prefix operators
    ExpressionComputer computer_;
};

ConstantExpressions::Result Failure(int error) {
    return {{}, std::string(MessageOf(error)), error};
}

}  // namespace

struct ConstantExpressions::Names {
    NameTable table;
};

ConstantExpressions::ConstantExpressions() : names_(std::make_unique<Names>()) {}
ConstantExpressions::~ConstantExpressions() = default;
ConstantExpressions::ConstantExpressions(ConstantExpressions&&) noexcept = default;
ConstantExpressions& ConstantExpressions::operator=(ConstantExpressions&&) noexcept = default;

void ConstantExpressions::Reset() {
    names_->table.clear();
}

ConstantExpressions::Result ConstantExpressions::Define(std::string_view name, std::string_view value) {
    name = ascii::Trim(name);
    const std::string key = LowerCase(name);
    const bool isName = !name.empty() && IsNameStart(name[0]) && NameLength(name) == name.size() &&
                        !OperatorOfWord(key) && !ConstantOfWord(key);
    if (!isName)
        return Failure(kSyntaxError);
    Value result;
    if (const int error = Reader(value, names_->table).Read(result))
        return Failure(error);
    std::string text = result.AsText();
    names_->table.insert_or_assign(key, std::move(result));
    return {std::move(text), {}, 0};
}

ConstantExpressions::Result ConstantExpressions::Evaluate(std::string_view expression) const {
    if (ascii::Trim(expression).empty())
        return {};
    Value result;
    if (const int error = Reader(expression, names_->table).Read(result))
        return Failure(error);
    return {result.AsText(), {}, 0};
}

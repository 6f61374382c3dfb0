// Each line of the input except the last defines a name, as "name=value"; the last line is evaluated.

#include <algorithm>
#include <string>
#include <string_view>

#include "fuzz_driver.h"
#include "platform/expression.h"

namespace {

void Check(const ConstantExpressions::Result& result) {
    Require(result.Ok() == result.error.empty(), "a result has either no error or a number and a text of it");
    Require(result.Ok() || result.text.empty(), "a failed result has no text");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    ConstantExpressions engine;
    for (std::size_t end; (end = rest.find('\n')) != std::string_view::npos; rest.remove_prefix(end + 1)) {
        const std::string_view line = rest.substr(0, end);
        const std::string_view name = line.substr(0, line.find('='));
        Check(engine.Define(name, line.substr(std::min(name.size() + 1, line.size()))));
    }

    const ConstantExpressions::Result result = engine.Evaluate(rest);
    Check(result);
    const bool isBlank = rest.find_first_not_of(" \t") == std::string_view::npos;
    if (!result.Ok() || isBlank)
        return 0;
    const ConstantExpressions::Result inBrackets = engine.Evaluate(std::string(1, '(').append(rest) += ')');
    const bool isTooDeep = rest.size() > 200 && inBrackets.number == 1002;
    Require(isTooDeep || inBrackets.text == result.text, "brackets around an expression change nothing");
    const ConstantExpressions::Result defined = engine.Define("copy", rest);
    Require(defined.text == result.text && engine.Evaluate("copy").text == result.text,
            "a name stands for the value it was given");
    return 0;
}

#include "platform/expression.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// Text of the result, or "#" and the error number.
std::string Evaluate(const ConstantExpressions& engine, std::string_view expression) {
    const ConstantExpressions::Result result = engine.Evaluate(expression);
    EXPECT_EQ(result.Ok(), result.error.empty());
    return result.Ok() ? result.text : std::to_string(result.number).insert(0, 1, '#');
}

/// Checks a list of "expression -> result;".
void ExpectAll(std::string_view cases) {
    const ConstantExpressions engine;
    for (std::size_t end; (end = cases.find(';')) != std::string_view::npos; cases.remove_prefix(end + 1)) {
        const std::string_view expression = cases.substr(0, cases.find(" ->"));
        const std::string_view result = cases.substr(expression.size() + 3, end - expression.size() - 3);
        EXPECT_EQ(Evaluate(engine, expression.substr(expression.find_first_not_of(" \n"))),
                  result.empty() ? result : result.substr(1))
            << expression;
    }
}

TEST(Expression, Literals) {
    ExpectAll(R"(
        1 -> 1;  007 -> 7;  .5 -> 0.5;  1. -> 1;  2.50 -> 2.5;  1e3 -> 1000;  1E-2 -> 0.01;  2e+1 -> 20;
        1E15 -> 1E+15;  123456789012345 -> 123456789012345;  0.1+0.2 -> 0.3;  1e-999 -> 0;  1e999 -> #6;
        &HFF -> 255;  &h7fff -> 32767;  &H8000 -> -32768;  &HFFFF -> -1;  &HFFFF& -> 65535;  &H10000 -> 65536;
        &HFFFFFFFF -> -1;  &H100000000 -> #6;  &O17 -> 15;  &O177777 -> -1;  "a""b" -> a"b;  "" ->;
        #1/2/2000# -> 1/2/2000;  TRUE -> True;  false -> False;  Empty ->;  Null -> Null;  Undefined ->;
    )");
}

TEST(Expression, PrecedenceFromTheStrongest) {
    ExpectAll(R"(
        -2 ^ 2 -> -4;  2 ^ -1 -> 0.5;  2 ^ 3 ^ 2 -> 64;  -6 / 3 * 2 -> -4;  7 \ 2 * 2 -> 1;  10 Mod 6 \ 4 -> 0;
        1 + 7 Mod 4 -> 4;  1 & 2 + 3 -> 15;  "2" & 1 = "21" -> True;  Not 1 = 2 -> True;
        Not False And False -> False;  True Or True And False -> True;  True Xor True Or True -> False;
        False Imp True Eqv False -> True;  (True Or True) And False -> False;
        1 = Not 2 = 2 -> False;  - - 3 -> 3;  +-+3 -> -3;  3 - -3 -> 6;  10 - 4 - 3 -> 3;
    )");
}

TEST(Expression, Comparisons) {
    ExpectAll(R"(
        1 = 1.0 -> True;  1 <> 1 -> False;  1 < 2 -> True;  2 <= 1 -> False;  2 >= 2 -> True;  1 =< 2 -> True;
        1 => 2 -> False;  True = -1 -> True;  True < False -> True;  Empty = 0 -> True;  Empty = "" -> True;
        Empty = False -> True;  Empty = Nowhere -> True;  1 = "1" -> False;  9999 < "1" -> True;
        "1" > True -> True;  "Abc" = "aBC" -> True;  "a" < "b" -> True;  Null = Null -> Null;  Null <> 1 -> Null;
        #1/1/2000# = #1/1/2000# -> True;  #1/1/2000# < #1/2/2000# -> #13;  #1/1/2000# = 1 -> #13;
    )");
}

TEST(Expression, LogicIsBitwiseAndBooleansStay) {
    ExpectAll(R"(
        True And True -> True;  True And 1 -> 1;  6 And 3 -> 2;  6 Or 3 -> 7;  6 Xor 3 -> 5;  6 Eqv 3 -> -6;
        6 Imp 3 -> -5;  Not 5 -> -6;  Not True -> False;  Not Empty -> -1;  2.5 And 7 -> 2;  3.5 And 7 -> 4;
        "5" And 4 -> 4;  "x" And 4 -> #13;  2147483648 And 1 -> #6;  Not Null -> Null;  Null And False -> False;
        Null And 0 -> 0;  Null And True -> Null;  True Or Null -> True;  Null Or 0 -> Null;
        Null Xor True -> Null;  Null Eqv True -> Null;  False Imp Null -> True;  True Imp Null -> Null;
        Null Imp True -> True;  Null Imp Null -> Null;
    )");
}

TEST(Expression, Arithmetic) {
    ExpectAll(R"(
        "5" + 1 -> 6;  "5" + "1" -> 51;  Empty + "x" -> x;  Empty + Empty -> 0;  Null + "x" -> Null;
        " -&H10 " + 0 -> -16;  "x" + 1 -> #13;  "" + 1 -> #13;  True + True -> -2;  -True -> 1;  -"2" -> -2;
        -Null -> Null;  7 / 2 -> 3.5;  -7 \ 2 -> -3;  -7 Mod 3 -> -1;  2.5 \ 1 -> 2;  0 * -1 -> 0;
        1 & 0.5 & True & Empty & Null -> 10.5True;  Null & Null -> Null;  #1/1/2000# + 1 -> #13;  1 / 0 -> #11;
        1 \ 0.4 -> #11;  1 Mod Empty -> #11;  -2147483648 Mod -1 -> 0;  -2147483648 \ -1 -> #6;
        1e308 * 10 -> #6;  10 ^ 999 -> #6;  0 ^ -1 -> #5;  (-8) ^ 0.5 -> #5;
    )");
}

TEST(Expression, SyntaxErrors) {
    const ConstantExpressions engine;
    EXPECT_EQ(Evaluate(engine, " \t"), "");
    // The last one shows that a syntax error takes precedence over all others.
    for (const char* wrong :
         {"1 +",   "* 1",      "1 2",   "1 = ", "(1",   "1)",    "()",         "a b",     "1 Not 2", "Not",
          "#open", "# #",      "a.b",   "a(1)", "1a",   "1.2.3", "1 And Or 2", "\"open",  "&H",      "&HG",
          "10&",   "x = 1 'c", "1 : 2", "a!",   "\x01", "1\n",   "_a",         "1 < > 2", "[a]",     "1/0 +"})
        EXPECT_EQ(Evaluate(engine, wrong), "#1002") << wrong;
}

TEST(Expression, NestingIsBoundedAndTimeIsLinear) {
    const ConstantExpressions engine;
    const auto repeat = [](std::string_view part, int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += part;
        return text;
    };
    EXPECT_EQ(Evaluate(engine, repeat("(", 200) + "1" + repeat(")", 200)), "1");
    EXPECT_EQ(Evaluate(engine, repeat("(", 201) + "1" + repeat(")", 201)), "#1002");
    EXPECT_EQ(Evaluate(engine, repeat("Not ", 201) + "1"), "#1002");
    EXPECT_EQ(Evaluate(engine, repeat("(1)+-", 50000) + "1"), "-49999");
    EXPECT_EQ(Evaluate(engine, repeat("\"a\"&", 100000) + "1"), "#14");
    EXPECT_EQ(Evaluate(engine, repeat("(", 1000000)), "#1002");
}

TEST(Names, AreBoundWithoutRegardToCaseUnlessAnErrorOccurs) {
    ConstantExpressions engine;
    EXPECT_EQ(engine.Define("Win32", "-1").text, "-1");
    EXPECT_EQ(engine.Define(" f\xDCr_2 ", "WIN32 + 3").text, "2");
    engine.Define("win32", "0");  // the later definition applies; values computed from the first one stay
    EXPECT_EQ(Evaluate(engine, "win32 & F\xFCR_2"), "02");
    for (const char* wrong : {"1=", "", " ", "(", "1 2"})
        EXPECT_EQ(engine.Define("win32", wrong).number, 1002) << wrong;
    EXPECT_EQ(engine.Define("win32", "1/0").number, 11);
    EXPECT_EQ(Evaluate(engine, "win32"), "0");
    for (const char* noName : {"", "1a", "a b", "a-b", "and", "True", "null", "_a", "a.b"})
        EXPECT_EQ(engine.Define(noName, "1").number, 1002) << noName;
}

TEST(Names, CannotGrowWithoutEnd) {
    ConstantExpressions engine;
    engine.Define("a", "\"0123456789\"");
    int error = 0;
    for (int i = 0; i < 40 && error == 0; ++i)
        error = engine.Define("a", "a & a").number;
    EXPECT_EQ(error, 14);
}

}  // namespace

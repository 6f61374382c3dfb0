// Compares all that two projects say about themselves.
#pragma once

#include <string>

class clsProjekt;

/// The first fact in which a project differs from another: lines, collections, name spaces, objects with their marks,
/// edges from both ends, all in order. Empty if there is none. Reports what is listed twice as a failure of the test.
[[nodiscard]] std::string DifferenceOf(const clsProjekt& projekt, const clsProjekt& expected);

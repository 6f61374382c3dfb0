// Reasons, grades and entry points in words of the user's language; UTF-8.
#pragma once

#include <string>

#include "reach/reasons.h"

class LineNumbers;

/// One sentence that says why an object is alive or not: "Only dead code calls it: modSlip.PrintBarcode."
[[nodiscard]] std::string SentenceOf(const Reason& reason, LineNumbers& lines);
/// "can go for sure", "can probably go", "cannot tell", "alive".
[[nodiscard]] std::string TextOf(Grade grade);
/// The grade of an object with its reason, as one sentence.
[[nodiscard]] std::string SentenceOf(const CodeObject& object, const Grading& grading, LineNumbers& lines);
/// "Handler of a control".
[[nodiscard]] std::string TextOf(EntryKind kind);
/// What a link is: "calls", "perhaps calls", "uses".
[[nodiscard]] std::string TextOf(LinkKind kind);
/// The path as spelled.
[[nodiscard]] std::string Utf8Path(const CodeObject& object);
/// "modMain 17": the module and physical line of a place.
[[nodiscard]] std::string PlaceText(const clsModul& modul, int line);

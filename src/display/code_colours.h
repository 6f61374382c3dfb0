// The coloured text of the code view, computed without a widget: which stretch of a module is shown, and the meaning of
// each of its characters according to the analysis.
//
// The text is painted by one selection after the other: later paint covers earlier paint, so the order of the steps
// decides which meaning wins. Positions in the shown text count from 0, positions in a module from 1.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "display/local_uses.h"
#include "shell/vb_text.h"

class clsCall;
class clsModul;
class clsProzedur;
class CodeObject;
class CodePage;
struct Settings;

/// What a stretch of text means. All but the last have a colour among the settings.
enum class Colour : std::uint8_t {
    None,
    Comment,
    String,
    NotCompiled,
    Public,
    Private,
    CallLocal,
    CallIn,
    CallOut,
    CallMayBe,
    FunctionResult,  // places of the variable that holds the result of its function; emphasised
};

/// The colour of the settings for a meaning, 32-bit BGR; 0 for None.
[[nodiscard]] std::int32_t ColourOf(Colour what, const Settings& settings);

/// The ground that code is shown on: greyer for dead and undead procedures, faintly so as far as the structure alone
/// says, before the calls are known.
enum class Shade : std::uint8_t { Plain, Faint, Grey };

/// A stretch of the shown text.
struct CodeRange {
    Pos start = 0;  // 0-based
    Pos length = 0;
    bool operator==(const CodeRange&) const = default;
};

struct CodeSpan {
    Pos start = 0;  // 0-based
    Pos length = 0;
    Colour what = Colour::None;
    bool operator==(const CodeSpan&) const = default;
};

/// Where a text names an object.
struct NamedObject {
    const CodeObject* object = nullptr;
    CodeRange name;
};

struct CodeText {
    std::string text;                  // bytes as in the source
    const CodePage* page = nullptr;    // in which they are shown; null for the active one
    Pos first = 1;                     // position of the first character in its module
    Pos comment = 0;                   // length of the comment that comes before the procedure
    int firstLine = 0;                 // line of the file at which the text begins; 0 if it is not part of a file
    std::vector<CodeSpan> spans;       // rising, none over another
    std::vector<NamedObject> objects;  // named in the page of a library, rising
    Shade shade = Shade::Plain;
    bool localsChecked = false;  // the places of the procedure's locals were determined for this text

    [[nodiscard]] Pos InModule(Pos start) const { return start + first; }
    /// The part of a stretch of the module that is shown, or nothing.
    [[nodiscard]] std::optional<CodeRange> Shown(Pos posInModule, Pos length) const;
};

/// Paints a stretch of a module, one selection after the other.
class CodePaint {
public:
    CodePaint(Pos first, Pos length) : first_(first), cells_(static_cast<std::size_t>(length), '\0') {}
    [[nodiscard]] Pos First() const { return first_; }
    [[nodiscard]] Pos Length() const { return Len({cells_.data(), cells_.size()}); }
    /// @param pos  in the module; what lies outside the stretch is left out
    void Select(Pos pos, Pos length, Colour what);
    /// What was painted, neighbours of one meaning as one span.
    [[nodiscard]] std::vector<CodeSpan> Spans() const;

private:
    Pos first_;
    std::string cells_;  // a Colour for each character
};

/// The declarations of a module; for a class of a library, the page of the library.
[[nodiscard]] CodeText ShowMe(const clsModul& modul);
/// The whole text of a module, with or without the header of its file. All local variables are looked for;
/// localsChecked says whether that was the first time for any procedure.
[[nodiscard]] CodeText ShowWhole(const clsModul& modul, LocalUses& locals, bool withHeader);
/// A procedure, with the comment lines directly above it. The first time its local variables are looked for;
/// localsChecked says so.
[[nodiscard]] CodeText ShowMe(const clsProzedur& prozedur, LocalUses& locals);
/// Colours the calls and uses of a module's declarations.
void ShowUses(const clsModul& modul, CodePaint& paint);
/// Colours the variables of a procedure and what it calls and uses.
void ShowCalls(const clsProzedur& prozedur, const std::vector<LocalUse>& locals, CodePaint& paint);

/// Place of the object's name in its declaration if the text shows it, of an argument in a library that of its
/// procedure; nothing for other texts and for objects without
/// a name in the code.
[[nodiscard]] std::optional<CodeRange> NameMarkieren(const CodeObject& object, const CodeText& shown);

/// Whether a procedure is declared among the declarations of its module: an external one or an event.
[[nodiscard]] bool IsAmongDeclarations(const clsProzedur& prozedur);

/// What a place is that a procedure calls or uses.
[[nodiscard]] Colour ColourOfCall(const clsCall& call, const clsModul& caller);

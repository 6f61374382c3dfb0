// Texts about a place in a module: its line, its declaration, its bytes as UTF-8. Sources are bytes in the active code
// page, texts of the language files always Windows-1252; whatever mixes both is put together in UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "shell/vb_text.h"

class clsModul;
class CodePage;
class CodeObject;

/// The page in which a whole text is shown: the active one. "auto" is settled here, by all bytes of the text, so that
/// each part of it is read alike.
[[nodiscard]] const CodePage& PageOf(std::string_view wholeText);

/// UTF-8 of bytes from a module, or of a name or path when `modul` is null.
[[nodiscard]] std::string Utf8Of(const clsModul* modul, std::string_view bytes);

/// A path as it is shown: with one kind of separator, whatever the project file writes. In the active code page.
[[nodiscard]] std::string ShownPath(std::string_view path);

/// A count with the separators of the program's language.
[[nodiscard]] std::string Utf8Number(long long number);

/// Where the comment lines directly above the line of `pos` begin; `pos` itself if there are none.
[[nodiscard]] Pos CommentAbove(std::string_view text, Pos pos);

/// Where the code of a module begins: after the version, the properties of a form and its attributes.
[[nodiscard]] Pos HeaderEnd(const clsModul& modul);

/// The logical line from its first character or `from`, whichever comes later, on one line and without its comment and
/// its indentation.
[[nodiscard]] std::string JoinedLine(std::string_view text, Pos pos, Pos from = 1);

/// The source text of an object's declaration: the head of a procedure, type or enumeration, the declaration that names
/// a variable. The path of the file for modules, of the registered file for libraries.
[[nodiscard]] std::string DeclarationText(const CodeObject& object);

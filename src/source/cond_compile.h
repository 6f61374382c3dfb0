// Conditional compilation: which stretches of a module the compiler would leave out. They, the directive lines
// and the Attribute lines get the NotCompile flag; the text itself stays as it is.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "source/line_scan.h"
#include "source/module_text.h"

/// (name, value) of a conditional constant, lower case.
using CondConstant = std::pair<std::string, std::string>;

/// One #If, #ElseIf, #Else or #End If line.
struct CondPart {
    enum class Typ { If, ElseIf, Else, EndIf } typ = Typ::If;
    bool isTrue = false;  // the code of this part is compiled
    Pos start = 0;        // of the "#"
    Pos ende = 0;         // CR of the directive's logical line, 0 in a last line without CR LF
    int ebene = 0;        // nesting level, from 1
};

/// Sets the NotCompile flags of one module.
/// @param lines  the scan of this text
/// @param condComps  the project's constants, row 0 unused; they win over the module's own
/// @param moduleDescription  kind and name of the module for reports, such as "form Form1"
void CondCompile_Initialisieren(ModuleText& text, const LineScan& lines, const std::vector<CondConstant>& condComps,
                                std::string_view moduleDescription);
/// The same with a scan of its own.
void CondCompile_Initialisieren(ModuleText& text, const std::vector<CondConstant>& condComps,
                                std::string_view moduleDescription);

/// The module's own constants from its #Const lines, in text order.
/// @param directives  every "#" that is the first non-blank of its logical line
[[nodiscard]] std::vector<CondConstant> CondCompile_ModulKonstanten(const ModuleText& text,
                                                                    const std::vector<Pos>& directives);

/// Assignments of a CondComp line of the project file: `CondComp="A = 1 : B = 0"`, lower-cased.
[[nodiscard]] std::vector<CondConstant> CondCompsOfLine(std::string_view line);

// Conditional compilation: finds the parts of a module that the compiler leaves out. These parts, the directive lines
// and the Attribute lines get the NotCompile flag; the text itself does not change.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "source/line_scan.h"
#include "source/module_text.h"

/// Name and value of a conditional constant, in lower case.
using CondConstant = std::pair<std::string, std::string>;

/// One #If, #ElseIf, #Else or #End If line.
struct CondPart {
    enum class Typ { If, ElseIf, Else, EndIf } typ = Typ::If;
    bool isTrue = false;  // this part is compiled
    Pos start = 0;        // position of the "#"
    Pos ende = 0;         // CR of the directive's logical line; 0 in a last line without CR LF
    int ebene = 0;        // nesting level, from 1
};

/// Sets the NotCompile flags of one module.
/// @param lines  the result of ScanLines for this text
/// @param condComps  the project's constants, row 0 unused; they take precedence over the module's constants
/// @param moduleDescription  kind and name of the module for error reports, such as "form Form1"
void CondCompile_Initialisieren(ModuleText& text, const LineScan& lines, const std::vector<CondConstant>& condComps,
                                std::string_view moduleDescription);
/// Same, but scans the lines itself.
void CondCompile_Initialisieren(ModuleText& text, const std::vector<CondConstant>& condComps,
                                std::string_view moduleDescription);

/// The constants that the module defines in its #Const lines, in text order.
/// @param directives  positions of every "#" that is the first non-blank of its logical line
[[nodiscard]] std::vector<CondConstant> CondCompile_ModulKonstanten(const ModuleText& text,
                                                                    const std::vector<Pos>& directives);

/// The assignments in a CondComp line of the project file, such as `CondComp="A = 1 : B = 0"`, in lower case.
[[nodiscard]] std::vector<CondConstant> CondCompsOfLine(std::string_view line);

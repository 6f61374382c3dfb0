// Reading of one source file into its module.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "model/kinds.h"
#include "platform/files.h"
#include "source/line_scan.h"
#include "source/module_text.h"
#include "source/tokens.h"

class clsModul;
class clsProjekt;

/// What can be told of a module's file by itself.
struct ModuleFile {
    FileError error = FileError::None;
    FileTime dateLastModified = 0;
    std::unique_ptr<ModuleText> text;  // null for files that are empty or could not be read
    std::unique_ptr<TokenTable> tokens;
    LineScan lines;
    std::string name;  // from its "Attribute VB_Name" line, else that of the file
};

/// Reads a file: its text, map, lines, conditional compilation with gCondComps, and tokens. Knows nothing of the
/// project, so that it may run on several threads at a time.
[[nodiscard]] ModuleFile Read_ModuleFile(const Files& files, std::string_view path, ModuleKind kind);

/// Takes name and time from the file. One that does not exist is asked about ("Laden abbrechen?"); Yes sets gAbort.
/// Without a text the module stays without name from its source.
/// @param moreMissing  tells how many files behind this one are missing too; asked only when this one is
void Read_MyCodeName(clsProjekt& projekt, clsModul& modul, const ModuleFile& file,
                     const std::function<int()>& moreMissing = {});

/// The whole first pass: text and tokens, controls, line counts, declarations, and the module's place in the
/// project. Does nothing for a module without text.
/// @param file  gives its parts away
void Modul_Einlesen(clsProjekt& projekt, clsModul& modul, ModuleFile& file);

/// The steps of it that look at the text alone.
void Modul_Aufbau_Lesen(clsProjekt& projekt, clsModul& modul, ModuleFile& file);

/// Makes a control of each `Begin Type Name` line outside comments and strings.
void Controls_Lesen(clsModul& modul);

/// Takes the numbers of physical lines of the whole file: blank, comment ("'" first), code (all others).
void Modul_Zeilen_Lesen(clsModul& modul, const LineScan& lines);

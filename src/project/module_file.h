// Reading of one source file into its module.
#pragma once

#include <functional>
#include <string_view>

class clsModul;
class clsProjekt;
struct LineScan;

/// Reads the file at modul.FullPath and finds the module's name in it. A file that does not exist is asked
/// about ("Laden abbrechen?"); Yes sets gAbort. Without a text the module stays without name from its source.
/// @param moreMissing  tells how many files behind this one are missing too; asked only when this one is
void Read_MyCodeName(clsProjekt& projekt, clsModul& modul, const std::function<int()>& moreMissing = {});

/// The whole first pass: maps, tokens, controls, line counts, declarations, and the module's place in the
/// project. Does nothing for a module without text.
void Modul_Einlesen(clsProjekt& projekt, clsModul& modul);

/// The steps of it that look at the text alone.
void Modul_Aufbau_Lesen(clsProjekt& projekt, clsModul& modul);

/// Makes a control of each `Begin Type Name` line outside comments and strings.
void Controls_Lesen(clsModul& modul);

/// Takes the numbers of physical lines of the whole file: blank, comment ("'" first), code (all others).
void Modul_Zeilen_Lesen(clsModul& modul, const LineScan& lines);

// Reads a whole project from texts in a test into gProjekt. The fixture ProgramState closes it.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "model/clsProjekt.h"
#include "platform/files.h"

/// Name and content of a file in the project's directory `p\`. A content without CR is passed to Vb.
using ProjectFile = std::pair<std::string, std::string>;

/// Creates the files in memory and reads the first one that ends in ".vbp". If there is none, creates one that lists
/// all files in the given order by extension (.bas, .frm, .cls, .ctl).
clsProjekt& ReadProject(std::initializer_list<ProjectFile> files);

/// Reads a project of one module. `snippet` is passed to Vb; its marks are discarded.
clsModul& ReadModule(std::string_view snippet, std::string_view fileName = "Module1.bas");
/// Same with the unchanged text.
clsModul& ReadModuleAsItIs(std::string text, std::string_view fileName = "Module1.bas");

/// The files of the last project read.
MemoryFiles& ProjectFiles();

/// The module of the open project at `codePath`; throws if there is none.
clsModul& ModuleOf(std::string_view codePath);

/// The objects of a module's collections in reading order without `Me` and `UserControl`:
/// "private x as long; public const C as variant; public type T(a as long); public enum E(b as long);
/// public control cmd as vb.commandbutton; public declare sub d(); private event sub Form_Load();
/// public function foo(argument a as integer, local i as long, local const c as 5, result foo as long) as long".
[[nodiscard]] std::string DumpObjects(const clsModul& modul);

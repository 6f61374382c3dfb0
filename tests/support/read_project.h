// A whole project out of texts that stand in a test, read into gProjekt. The fixture ProgramState closes it.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "model/clsProjekt.h"
#include "platform/files.h"

/// Name and content of a file in the project's directory `p\`. A content without CR goes through Vb.
using ProjectFile = std::pair<std::string, std::string>;

/// Puts the files into memory and reads the project of the first that ends in ".vbp". Where there is none,
/// one is made that lists every file in the order given, by its ending (.bas, .frm, .cls, .ctl).
clsProjekt& ReadProject(std::initializer_list<ProjectFile> files);

/// Reads a project of one module. `snippet` goes through Vb first; its marks are dropped.
clsModul& ReadModule(std::string_view snippet, std::string_view fileName = "Module1.bas");
/// The same with the text as it stands.
clsModul& ReadModuleAsItIs(std::string text, std::string_view fileName = "Module1.bas");

/// The files of the project that was read last.
MemoryFiles& ProjectFiles();

/// The module of the open project at `codePath`; throws when there is none.
clsModul& ModuleOf(std::string_view codePath);

/// The objects of a module's collections in the order of reading, `Me` and `UserControl` left out:
/// "private x as long; public const C as variant; public type T(a as long); public enum E(b as long);
/// public control cmd as vb.commandbutton; public declare sub d(); private event sub Form_Load();
/// public function foo(argument a as integer, local i as long, local const c as 5, result foo as long) as long".
[[nodiscard]] std::string DumpObjects(const clsModul& modul);

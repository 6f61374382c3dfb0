// Reads a Reference= or Object= line of the project file into a library.
#pragma once

#include <string_view>

class clsProjekt;
class clsTypeLib;

/// Fills `library` from a line such as `Reference=*\G{...}#2.0#0#C:\...\stdole2.tlb#OLE Automation`. The name is that
/// of the library's file without its ending. A project that is referenced by its path (`*\A..\Other.vbp`) gets the path
/// as its identifier. Parts that the line lacks stay empty.
void FillPropertysRef(clsProjekt& projekt, clsTypeLib& library, std::string_view line);

/// The same for a component: `Object={...}#2.0#0; MSCOMCTL.OCX`.
void FillPropertys(clsProjekt& projekt, clsTypeLib& library, std::string_view line);

// What a Reference= or Object= line of the project file tells of its library by itself.
#pragma once

#include <string_view>

class clsProjekt;
class clsTypeLib;

/// Fills `library` from a line such as `Reference=*\G{...}#2.0#0#C:\...\stdole2.tlb#OLE Automation`.
/// The name is that of the library's file without its ending. A project that is referenced by its path
/// (`*\A..\Other.vbp`) has the path in place of an identifier. What the line lacks stays empty.
void FillPropertysRef(clsProjekt& projekt, clsTypeLib& library, std::string_view line);

/// The same for a component: `Object={...}#2.0#0; MSCOMCTL.OCX`.
void FillPropertys(clsProjekt& projekt, clsTypeLib& library, std::string_view line);

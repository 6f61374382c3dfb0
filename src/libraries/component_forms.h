// Which modules depend on a component.
#pragma once

#include <vector>

class clsModul;
class clsProjekt;
class clsTypeLib;

/// Whether the header of a module has an Object line with the identifier of the component.
[[nodiscard]] bool Who_Uses_ProjectObject(const clsModul& modul, const clsTypeLib& component);

/// The modules, forms and class modules that name the component. Visual Basic writes the line into user controls as
/// well, but those are not counted.
[[nodiscard]] std::vector<clsModul*> Who_Uses_Me(const clsProjekt& projekt, const clsTypeLib& component);

/// The components of the project that the header of a module names; none for a user control.
[[nodiscard]] std::vector<const clsTypeLib*> Ref_ProjectObjects(const clsProjekt& projekt, const clsModul& modul);

// Which event a procedure of the project handles: nothing but its name says so.
#pragma once

class clsProjekt;
class clsProzedur;

/// The event that a procedure of this name handles, as `cmdOpen_Click` does for a control cmdOpen and `app_Quit` for a
/// WithEvents variable app; null if it handles none, or one of a class that is not known.
[[nodiscard]] const clsProzedur* HandledEvent(const clsProjekt& projekt, const clsProzedur& prozedur);

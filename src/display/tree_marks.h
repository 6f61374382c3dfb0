// Shows in a tree what is dead: the dead images and the grey of dead and undead objects.
#pragma once

class Baum;
class CodeObject;
class LocalUses;
class clsModul;
class clsProjekt;
class clsProzedur;

/// All marks of the project. Objects without a node are passed over.
void Tote_Objekte_Markieren(const clsProjekt& projekt, Baum& tree);
/// Those of one module, or of one object.
void Tote_Objekte_Markieren(const clsProjekt& projekt, const clsModul& modul, Baum& tree);
void Totes_Objekt_Markieren(const clsProjekt& projekt, const CodeObject& object, Baum& tree);
/// The arguments and locals of a procedure, by whether anything calls them: to be called only after their uses were
/// determined.
void Tote_Objekte_Markieren(const clsProzedur& prozedur, const LocalUses& locals, Baum& tree);

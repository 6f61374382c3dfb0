#include "display/tree_marks.h"

#include "display/baum.h"
#include "display/local_uses.h"
#include "display/node_objects.h"
#include "model/clsProjekt.h"
#include "model/module_walk.h"

void Tote_Objekte_Markieren(const clsProjekt& projekt, Baum& tree) {
    const Baum::Filling filling(tree);
    for (const clsModul* modul : projekt.AllModules())
        Tote_Objekte_Markieren(projekt, *modul, tree);
}

void Tote_Objekte_Markieren(const clsProjekt& projekt, const clsModul& modul, Baum& tree) {
    ForEachDeclared(modul, [&](const CodeObject& object) { Totes_Objekt_Markieren(projekt, object, tree); });
}

void Totes_Objekt_Markieren(const clsProjekt& projekt, const CodeObject& object, Baum& tree) {
    BaumNode* node = tree.Item(object.CodePath());
    if (!node)
        return;
    const NodeColour ofDead = projekt.callsKnown ? NodeColour::Grey : NodeColour::Faint;
    tree.SetImage(*node, object.GetImageKey());
    tree.SetForeColor(*node, object.IsDeath < 1 ? NodeColour::Ordinary : ofDead);
}

void Tote_Objekte_Markieren(const clsProzedur& prozedur, const LocalUses& locals, Baum& tree) {
    // This checks the type of the procedure, not that of the variable, on purpose: the icons of locals follow their
    // procedure.
    const bool isConst = prozedur.DatenTyp().starts_with("const");
    for (const clsVariable* variable : prozedur.MyVars) {
        BaumNode* node = tree.Item(NodeKeyOf(*variable));
        if (!node)
            continue;
        if (locals.CountOf(*variable) != 0) {
            tree.SetImage(*node, isConst ? "const" : variable->Zugriff == Access::Argument ? "argument" : "variable");
            tree.SetForeColor(*node, NodeColour::Ordinary);
        } else {
            tree.SetImage(*node, isConst ? "ConstDeath" : "VariableDeath");
            tree.SetForeColor(*node, NodeColour::Grey);
        }
    }
}

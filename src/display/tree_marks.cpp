#include "display/tree_marks.h"

#include "display/baum.h"
#include "display/local_uses.h"
#include "display/node_objects.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"

namespace {

class Marker {
public:
    Marker(Baum& tree, NodeColour ofDead) : tree_(tree), ofDead_(ofDead) {}

    void Mark(const CodeObject& object) {
        BaumNode* node = tree_.Item(object.CodePath());
        if (!node)
            return;
        tree_.SetImage(*node, object.GetImageKey());
        tree_.SetForeColor(*node, object.IsDeath < 1 ? NodeColour::Ordinary : ofDead_);
    }

    void Mark(const clsModul& modul) {
        for (const clsProzedur* prozedur : modul.MyProcs)
            Mark(*prozedur);
        for (const clsVariable* variable : modul.MyVars) {
            const bool isMe = modul.ModulTyp != ModuleKind::Module && variable->MyName() == "me";
            if (!isMe && !variable->MyEnum)  // members come with their enumerations
                Mark(*variable);
        }
        MarkWithMembers(modul.myTypes);
        MarkWithMembers(modul.myEnums);
    }

private:
    template <class Owner>
    void MarkWithMembers(const clsCollection<Owner>& owners) {
        for (const Owner* owner : owners) {
            for (const clsVariable* member : owner->MyVars)
                Mark(*member);
            Mark(static_cast<const CodeObject&>(*owner));
        }
    }

    Baum& tree_;
    NodeColour ofDead_;
};

}  // namespace

void Tote_Objekte_Markieren(const clsProjekt& projekt, Baum& tree) {
    const Baum::Filling filling(tree);
    Marker marker(tree, projekt.callsKnown ? NodeColour::Grey : NodeColour::Faint);
    for (const clsModul* modul : projekt.AllModules())
        marker.Mark(*modul);
}

void Tote_Objekte_Markieren(const clsModul& modul, Baum& tree) {
    const Baum::Filling filling(tree);
    Marker(tree, NodeColour::Grey).Mark(modul);
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

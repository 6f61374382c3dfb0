#include "xgraph/connectors.h"

#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"
#include "xgraph/graph.h"

namespace {

// Draws the outgoing connectors of one symbol.
class Outgoing {
public:
    Outgoing(const XGraph& graph, const ctlGraphObj& from, bool highlight, std::vector<Connector>& into)
        : graph_(graph), from_(from), highlight_(highlight), into_(into) {}

    void OfProzedur(const clsProzedur& prozedur) {
        RuleOfProcedures(prozedur);
        for (const clsCall* call : prozedur.UsesAll())
            DrawTo(call->Parent, call);
    }

    void OfModul(const clsModul& modul) {
        for (const clsCall* call : modul.CallsInDeclarations()) {
            DrawTo(call->Parent, call);
            if (call->Parent->Class() == ObjectClass::Variable) {
                const auto& variable = static_cast<const clsVariable&>(*call->Parent);
                if (variable.Prozedur)
                    DrawTo(variable.Prozedur, call);
                else
                    DrawTo(variable.Modul, call);
            }
        }
        for (const clsProzedur* prozedur : modul.MyProcs)
            RuleOfProcedures(*prozedur);
    }

private:
    void DrawTo(const CodeObject* object, const clsCall* call) {
        if (const ctlGraphObj* const to = object ? graph_.GraphObj(*object) : nullptr)
            into_.push_back({&from_, to, call, highlight_});
    }

    void DrawToOwners(const CodeObject& typeOrEnum, const clsCall* call) {
        DrawTo(&typeOrEnum, call);
        DrawTo(typeOrEnum.myLibrary, call);
        DrawTo(typeOrEnum.Modul, call);
    }

    void RuleOfProcedures(const clsProzedur& prozedur) {
        for (const clsCall* call : prozedur.CallsAll())
            RuleOfProcedures(*call->Parent, call);
    }

    // To the target, and to what contains it.
    void RuleOfProcedures(const CodeObject& target, const clsCall* call) {
        DrawTo(&target, call);
        switch (target.Class()) {
            case ObjectClass::Modul:
            case ObjectClass::TypeLib:
                DrawTo(&target, call);  // twice, as the list of connectors has it
                return;
            case ObjectClass::Variable:
                if (const auto& variable = static_cast<const clsVariable&>(target); IsMember(variable)) {
                    if (variable.MyType)
                        DrawToOwners(*variable.MyType, call);
                    if (variable.MyEnum)
                        DrawToOwners(*variable.MyEnum, call);
                    return;
                }
                break;
            case ObjectClass::Prozedur:
            case ObjectClass::Control:
            case ObjectClass::Type:
            case ObjectClass::Enum:
                break;
        }
        if (target.Modul) {
            DrawTo(target.Modul, call);
            DrawTo(target.Modul->myLibrary, call);
        }
        if (target.Class() != ObjectClass::Prozedur && target.Class() != ObjectClass::Control)
            DrawTo(target.myLibrary, call);
    }

    static bool IsMember(const clsVariable& variable) { return variable.MyType || variable.MyEnum; }

    const XGraph& graph_;
    const ctlGraphObj& from_;
    bool highlight_;
    std::vector<Connector>& into_;
};

// Draws the incoming connectors of one symbol.
class Incoming {
public:
    Incoming(const XGraph& graph, const ctlGraphObj& to, bool highlight, std::vector<Connector>& into)
        : graph_(graph), to_(to), highlight_(highlight), into_(into) {}

    void FromProcedures(const IncomingEdges& edges) {
        for (const clsCall* call : edges)
            if (call->CallProcedure())
                DrawFromCaller(call);
    }
    // From the procedure of an edge, or from the module in whose declarations it is.
    void FromCallers(const IncomingEdges& edges) {
        for (const clsCall* call : edges)
            DrawFromCaller(call);
    }

    void OfType(const clsType& type) {
        for (const clsVariable* member : type.MyVars)
            FromProcedures(member->CalledByAll());
        FromProcedures(type.UsedByAll());
    }
    void OfEnum(const clsEnum& einEnum) {
        for (const clsVariable* member : einEnum.MyVars)
            FromCallers(member->CalledByAll());
        FromCallers(einEnum.UsedByAll());
    }
    void OfModul(const clsModul& modul) {
        FromCallers(modul.UsedByAll());
        for (const clsProzedur* prozedur : modul.MyProcs)
            FromProcedures(prozedur->CalledByAll());
        for (const clsVariable* variable : modul.MyVars)
            FromCallers(variable->CalledByAll());
        for (const clsType* type : modul.myTypes)
            FromCallers(type->UsedByAll());
        for (const clsEnum* einEnum : modul.myEnums)
            FromCallers(einEnum->UsedByAll());
    }

private:
    void DrawFromCaller(const clsCall* call) {
        if (const ctlGraphObj* const from = graph_.GraphObj(call->Caller()))
            into_.push_back({from, &to_, call, highlight_});
    }

    const XGraph& graph_;
    const ctlGraphObj& to_;
    bool highlight_;
    std::vector<Connector>& into_;
};

}  // namespace

void GraphVerbindungen_FromObject(const XGraph& graph, const ctlGraphObj& symbol, bool Highlight,
                                  std::vector<Connector>& into) {
    Outgoing outgoing(graph, symbol, Highlight, into);
    if (symbol.object->Class() == ObjectClass::Prozedur)
        outgoing.OfProzedur(static_cast<const clsProzedur&>(*symbol.object));
    else if (symbol.object->Class() == ObjectClass::Modul)
        outgoing.OfModul(static_cast<const clsModul&>(*symbol.object));
}

void GraphVerbindungen_ToObject(const XGraph& graph, const ctlGraphObj& symbol, bool Highlight,
                                std::vector<Connector>& into) {
    Incoming incoming(graph, symbol, Highlight, into);
    const CodeObject& object = *symbol.object;
    switch (object.Class()) {
        case ObjectClass::Type:
            incoming.OfType(static_cast<const clsType&>(object));
            break;
        case ObjectClass::Enum:
            incoming.OfEnum(static_cast<const clsEnum&>(object));
            break;
        case ObjectClass::Modul:
            incoming.OfModul(static_cast<const clsModul&>(object));
            break;
        case ObjectClass::TypeLib:
            break;
        case ObjectClass::Prozedur:
        case ObjectClass::Variable:
        case ObjectClass::Control:
            incoming.FromProcedures(object.CalledByAll());
            break;
    }
}

std::vector<Connector> GraphVerbindungen(const XGraph& graph) {
    std::vector<Connector> connectors;
    for (const auto& symbol : graph.GraphObjects())
        GraphVerbindungen_FromObject(graph, *symbol, false, connectors);
    if (const ctlGraphObj* const active = graph.Active()) {
        GraphVerbindungen_FromObject(graph, *active, true, connectors);
        GraphVerbindungen_ToObject(graph, *active, true, connectors);
    }
    return connectors;
}

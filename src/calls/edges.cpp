#include "calls/edges.h"

#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"

const IncomingEdges* UsedByAllOf(const CodeObject& object) {
    switch (object.Class()) {
        case ObjectClass::Type:
            return &static_cast<const clsType&>(object).UsedByAll;
        case ObjectClass::Enum:
            return &static_cast<const clsEnum&>(object).UsedByAll;
        case ObjectClass::Modul:
            return &static_cast<const clsModul&>(object).UsedByAll;
        case ObjectClass::TypeLib:
            return &static_cast<const clsTypeLib&>(object).UsedByAll;
        default:
            return nullptr;
    }
}

namespace {

template <class Edges>
bool HasType(const Edges& edges, CallType type) {
    for (const clsCall* call : edges)
        if (call->Type() == type)
            return true;
    return false;
}

}  // namespace

clsCall& CallCreate(clsProjekt& projekt, CodeObject& target, clsProzedur& caller, CallType type, Pos pos) {
    clsCall& call = projekt.calls.New(target, &caller, type, pos);
    target.CalledByAll.Append(call);
    caller.CallsAll.Append(call);
    return call;
}

clsCall& CallCreateVarInDecl(clsProjekt& projekt, CodeObject& target, clsModul& caller, CallType type, Pos pos) {
    clsCall& call = projekt.calls.New(target, &caller, type, pos);
    target.CalledByAll.Append(call);
    caller.CallsInDeclarations.Append(call);
    return call;
}

clsCall* CallUseCreate(clsProjekt& projekt, CodeObject& target, clsProzedur* procedure, clsModul& modul, Pos pos) {
    auto* usedByAll = const_cast<IncomingEdges*>(UsedByAllOf(target));
    if (!usedByAll)
        return nullptr;
    clsCall& call = procedure ? projekt.calls.New(target, procedure, CallType::Use, pos)
                              : projekt.calls.New(target, &modul, CallType::Use, pos);
    usedByAll->Append(call);
    (procedure ? procedure->UsesAll : modul.CallsInDeclarations).Append(call);
    return &call;
}

bool Is_CalledBy(const CodeObject& object, CallType type) {
    return HasType(object.CalledByAll, type);
}

bool Is_UsedBy(const CodeObject& object, CallType type) {
    const IncomingEdges* usedByAll = UsedByAllOf(object);
    return usedByAll && HasType(*usedByAll, type);
}

bool Is_Calls(const clsProzedur& prozedur, CallType type) {
    for (const clsCall* call : type == CallType::Use ? prozedur.UsesAll : prozedur.CallsAll) {
        if (call->Type() != type)
            continue;
        const auto* variable =
            call->Parent->Class() == ObjectClass::Variable ? static_cast<const clsVariable*>(call->Parent) : nullptr;
        if (!variable || !variable->Prozedur || variable->Prozedur->CodePath() != prozedur.CodePath())
            return true;
    }
    return false;
}

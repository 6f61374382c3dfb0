#include "calls/edges.h"

#include "model/clsProzedur.h"

namespace {

template <class Edges>
bool HasType(const Edges& edges, CallType type) {
    for (const clsCall* call : edges)
        if (call->Type() == type)
            return true;
    return false;
}

}  // namespace

void FoundCalls::CallUseCreate(CodeObject& target, CodeObject& caller, Pos pos) {
    if (target.CanBeUsed())
        CallCreate(target, caller, CallType::Use, pos);
}

bool Is_CalledBy(const CodeObject& object, CallType type) {
    return HasType(object.CalledByAll(), type);
}

bool Is_UsedBy(const CodeObject& object, CallType type) {
    return HasType(object.UsedByAll(), type);
}

bool Is_Calls(const clsProzedur& prozedur, CallType type) {
    return HasType(type == CallType::Use ? prozedur.UsesAll() : prozedur.CallsAll(), type);
}

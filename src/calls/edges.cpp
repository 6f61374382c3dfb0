#include "calls/edges.h"

#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "platform/memory.h"

namespace {

template <class Edges>
bool HasType(const Edges& edges, CallType type) {
    for (const clsCall* call : edges)
        if (call->Type() == type)
            return true;
    return false;
}

}  // namespace

clsCall& CallCreate(clsProjekt& projekt, CodeObject& target, EdgeStart start, Pos pos) {
    const bool isUse = start.Type() == CallType::Use;
    clsCall& call = projekt.calls.New(target, start, pos);
    target.Incoming(isUse).Append(call);
    if (clsProzedur* const caller = start.Procedure())
        caller->Outgoing(isUse).Append(call);
    else if (clsModul* const modul = start.Module())
        modul->OutgoingOfDeclarations().Append(call);
    return call;
}

void FoundCalls::CallUseCreate(CodeObject& target, clsProzedur* procedure, clsModul& modul, Pos pos) {
    if (!target.CanBeUsed())
        return;
    if (procedure)
        CallCreate(target, *procedure, CallType::Use, pos);
    else
        CallCreateVarInDecl(target, modul, CallType::Use, pos);
}

void FoundCalls::Join(clsProjekt& projekt) const {
    // Targets lie all over the memory: they are on their way when their turn comes.
    constexpr std::size_t kFar = 16;
    constexpr std::size_t kNear = 8;
    for (std::size_t i = 0; i < found_.size(); ++i) {
        if (i + kFar < found_.size())
            Prefetch(&found_[i + kFar].target->CalledByAll());
        if (i + kNear < found_.size())
            Prefetch(found_[i + kNear].target->CalledByAll().Last());
        ::CallCreate(projekt, *found_[i].target, found_[i].start, found_[i].pos);
    }
}

bool Is_CalledBy(const CodeObject& object, CallType type) {
    return HasType(object.CalledByAll(), type);
}

bool Is_UsedBy(const CodeObject& object, CallType type) {
    return HasType(object.UsedByAll(), type);
}

bool Is_Calls(const clsProzedur& prozedur, CallType type) {
    for (const clsCall* call : type == CallType::Use ? prozedur.UsesAll() : prozedur.CallsAll()) {
        if (call->Type() != type)
            continue;
        const auto* variable =
            call->Parent->Class() == ObjectClass::Variable ? static_cast<const clsVariable*>(call->Parent) : nullptr;
        if (!variable || !variable->Prozedur || variable->Prozedur->CodePath() != prozedur.CodePath())
            return true;
    }
    return false;
}

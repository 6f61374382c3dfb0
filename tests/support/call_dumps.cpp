#include "support/call_dumps.h"

#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "project/start.h"

namespace {

std::string_view MarkOf(const clsCall& call) {
    return call.Type() == CallType::Really ? "> " : call.Type() == CallType::MayBe ? "? " : ": ";
}

void Join(std::string& dump, const std::string& edge) {
    dump.append(dump.empty() ? "" : "; ").append(edge);
}

}  // namespace

std::string DumpEdges() {
    std::string dump;
    gProjekt->calls.ForEach([&](const clsCall& call) {
        Join(dump, call.Caller().CodePath().append(" ").append(MarkOf(call)) + call.Parent->CodePath());
    });
    return dump;
}

std::string DumpEdgesOf(std::string_view caller) {
    const std::string modul = std::string(caller.substr(0, caller.find('.'))) + ".";
    std::string dump;
    gProjekt->calls.ForEach([&](const clsCall& call) {
        if (call.Caller().CodePath() != caller)
            return;
        const std::string target = call.Parent->CodePath();
        Join(dump, std::string(MarkOf(call)) + (target.starts_with(modul) ? target.substr(modul.size()) : target));
    });
    return dump;
}

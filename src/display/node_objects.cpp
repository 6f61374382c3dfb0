#include "display/node_objects.h"

#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"

std::string ObjectPathOf(const NodeId& node) {
    if (node.kind == NodeKind::Root)
        return {};
    return LowerCase(node.kind == NodeKind::Group ? node.key.substr(0, node.key.rfind('.')) : node.key);
}

CodeObject* ObjectOfNode(const clsProjekt& projekt, const NodeId& node) {
    const std::string path = ObjectPathOf(node);
    if (CodeObject* const object = projekt.GetObjectFromCodePath(path))
        return object;
    const auto end = path.rfind('.');
    const auto begin = end == std::string::npos || end == 0 ? std::string::npos : path.rfind('.', end - 1);
    const clsModul* const modul = begin != std::string::npos ? projekt.GetModuleFromCodePath(path) : nullptr;
    if (!modul)
        return nullptr;
    const std::string_view procName = std::string_view(path).substr(begin + 1, end - begin - 1);
    const std::string_view varName = std::string_view(path).substr(end + 1);
    for (const clsProzedur* prozedur : modul->MyProcs)
        if (prozedur->MyName() == procName)
            if (clsVariable* const variable = prozedur->MyVars.Item(varName); variable && variable->CodePath() == path)
                return variable;
    return nullptr;
}

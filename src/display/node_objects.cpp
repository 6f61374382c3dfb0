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

std::string NodeKeyOf(const CodeObject& object) {
    if (object.Class() == ObjectClass::Variable)
        if (const clsProzedur* prozedur = static_cast<const clsVariable&>(object).Prozedur)
            return JoinPath(prozedur->CodePath(), object.MyName());
    return object.CodePath();
}

CodeObject* ObjectOfNode(const clsProjekt& projekt, const NodeId& node) {
    const std::string path = ObjectPathOf(node);
    if (CodeObject* const object = projekt.GetObjectFromCodePath(path))
        return object;
    const auto point = path.rfind('.');
    const clsModul* const modul = point != std::string::npos ? projekt.GetModuleFromCodePath(path) : nullptr;
    if (!modul)
        return nullptr;
    const std::string_view ofProzedur = std::string_view(path).substr(0, point);
    const std::string_view varName = std::string_view(path).substr(point + 1);
    for (const clsProzedur* prozedur : modul->MyProcs)
        if (clsVariable* const variable = prozedur->MyVars.Item(varName);
            variable && prozedur->CodePath() == ofProzedur)
            return variable;
    return nullptr;
}

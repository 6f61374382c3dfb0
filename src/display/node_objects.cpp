#include "display/node_objects.h"

#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"

namespace {

constexpr char kBelow = '\n';  // no name contains it

CodeObject* LocalOfModule(const clsModul& modul, std::string_view path) {
    const auto point = path.rfind('.');
    const std::string_view ofProzedur = path.substr(0, point);
    const std::string_view varName = path.substr(point + 1);
    for (const clsProzedur* prozedur : modul.MyProcs)
        if (clsVariable* const variable = prozedur->MyVars.Item(varName);
            variable && prozedur->CodePath() == ofProzedur)
            return variable;
    return nullptr;
}

// An event, or an argument of an event or procedure.
CodeObject* InnerOfLibrary(const clsTypeLib& library, std::string_view path) {
    const std::string_view inside = path.substr(path.find('.') + 1);
    const clsModul* const modul = library.myCoClasses.Item(inside.substr(0, inside.find('.')));
    if (!modul)
        return nullptr;
    if (CodeObject* const local = LocalOfModule(*modul, path))
        return local;
    for (clsProzedur* event : modul->MyEvents) {
        const std::string key = NodeKeyOf(*event);
        if (path == key)
            return event;
        if (path.starts_with(key + '.'))
            return event->MyVars.Item(path.substr(key.size() + 1));
    }
    return nullptr;
}

}  // namespace

std::string ObjectPathOf(const NodeId& node) {
    if (node.kind == NodeKind::Root)
        return {};
    return LowerCase(node.kind == NodeKind::Group ? std::string_view(node.key).substr(0, node.key.rfind('.'))
                                                  : OwnKeyOf(node.key));
}

std::string NodeKeyOf(const CodeObject& object) {
    if (object.Class() == ObjectClass::Variable)
        if (const clsProzedur* prozedur = static_cast<const clsVariable&>(object).Prozedur)
            return JoinPath(prozedur->myLibrary ? NodeKeyOf(*prozedur) : prozedur->CodePath(), object.MyName());
    const bool isLibraryEvent =
        object.myLibrary && object.Class() == ObjectClass::Prozedur && static_cast<const clsProzedur&>(object).IsEvent;
    return isLibraryEvent ? object.CodePath() + " [event]" : object.CodePath();
}

std::string NodeKeyBelow(const BaumNode& above, const CodeObject& object) {
    return above.Key() + kBelow + NodeKeyOf(object);
}

std::string_view OwnKeyOf(std::string_view nodeKey) {
    return nodeKey.substr(nodeKey.rfind(kBelow) + 1);
}

CodeObject* ObjectOfNode(const clsProjekt& projekt, const NodeId& node) {
    const std::string path = ObjectPathOf(node);
    if (CodeObject* const object = projekt.GetObjectFromCodePath(path))
        return object;
    const auto point = path.find('.');
    if (point == std::string::npos)
        return nullptr;
    const CodeObject* const library = projekt.GetObjectFromCodePath(path.substr(0, point));
    if (library && library->Class() == ObjectClass::TypeLib)
        return InnerOfLibrary(static_cast<const clsTypeLib&>(*library), path);
    const clsModul* const modul = projekt.GetModuleFromCodePath(path);
    return modul ? LocalOfModule(*modul, path) : nullptr;
}

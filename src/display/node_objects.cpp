#include "display/node_objects.h"

#include <string>

#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsVariable.h"
#include "model/group_keys.h"
#include "platform/code_page.h"

std::string_view ObjectKeyOfNode(std::string_view key) {
    return IsGroupKey(key) ? key.substr(0, key.rfind('.')) : key;
}

CodeObject* ObjectOfNode(std::string_view key) {
    const std::string path = LowerCase(ObjectKeyOfNode(key));
    if (CodeObject* const object = modMain::GetObjectFromCodePath(path))
        return object;
    const auto end = path.rfind('.');
    const auto begin = end == std::string::npos || end == 0 ? std::string::npos : path.rfind('.', end - 1);
    const clsModul* const modul =
        begin != std::string::npos && gProjekt ? gProjekt->GetModuleFromCodePath(path) : nullptr;
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

#include "model/clsModul.h"

clsModul::clsModul() : CodeObject(ObjectClass::Modul) {}

clsModul::~clsModul() = default;

std::string clsModul::CodePathOrg() const {
    return std::string(myNameOrg());
}

std::string_view clsModul::GetImageKey() const {
    if (ModulTyp == ModuleKind::UserControl)
        return "control";
    return TextOf(ModulTyp);
}

CodeObject* clsModul::Get_Object_From_CodePath(std::string_view codePath) {
    for (const clsSpaceName* entry : PrivNameSpace)
        for (CodeObject* object : entry->Objects())
            if (object->CodePath() == codePath)
                return object;
    return MyName() == codePath ? this : nullptr;
}

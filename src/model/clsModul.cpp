#include "model/clsModul.h"

CodeObject* clsModul::Get_Object_From_CodePath(std::string_view codePath) {
    for (const clsSpaceName* entry : PrivNameSpace)
        for (CodeObject* object : entry->Objects())
            if (object->CodePath() == codePath)
                return object;
    return CodePath() == codePath ? this : nullptr;
}

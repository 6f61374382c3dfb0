#include "model/clsModul.h"

#include "model/clsProzedur.h"

namespace {

// Longer ends of a path are no names.
constexpr std::size_t kLongestName = 300;

// Calls `use` for each name that an object with this path can have, until one gives an object: what follows one of the
// points, with and without the kind after it. Names in brackets can hold points.
template <class Use>
CodeObject* ForNamesOf(std::string_view codePath, Use use) {
    for (std::size_t begin = codePath.size(); begin != 0;) {
        const std::size_t point = codePath.rfind('.', begin - 1);
        begin = point == std::string_view::npos ? 0 : point;
        const std::string_view name = codePath.substr(begin == 0 ? 0 : begin + 1);
        if (name.size() > kLongestName)
            return nullptr;
        if (CodeObject* const object = use(name))
            return object;
        const std::size_t kind = name.rfind(" [");
        if (kind != std::string_view::npos)
            if (CodeObject* const object = use(name.substr(0, kind)))
                return object;
    }
    return nullptr;
}

}  // namespace

CodeObject* clsModul::Get_Object_From_CodePath(std::string_view codePath) {
    CodeObject* const declared = ForNamesOf(codePath, [&](std::string_view name) -> CodeObject* {
        if (const clsSpaceName* const entry = PrivNameSpace.Item(name))
            for (CodeObject* object : entry->Objects())
                if (object->CodePath() == codePath)
                    return object;
        return nullptr;
    });
    if (declared)
        return declared;
    return CodePath() == codePath ? this : LocalAt(codePath);
}

CodeObject* clsModul::LocalAt(std::string_view codePath) const {
    return ForNamesOf(codePath, [&](std::string_view name) -> CodeObject* {
        const auto length = static_cast<std::size_t>(name.data() - codePath.data());
        const std::string_view owner = codePath.substr(0, length - (length == 0 ? 0 : 1));
        for (const clsProzedur* prozedur : MyProcs)
            if (owner.ends_with(prozedur->MyName()))  // most are not, and that is quickly seen
                if (clsVariable* const local = prozedur->MyVars.Item(name); local && local->CodePath() == codePath)
                    return local;
        return nullptr;
    });
}

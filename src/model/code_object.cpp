#include "model/code_object.h"

#include "platform/code_page.h"

std::string CodeObject::CodePath() const {
    return LowerCase(CodePathOrg());
}

Name CodeObject::CodePathKey() const {
    return Name(CodePath());
}

std::string JoinPath(std::string_view first, std::string_view second) {
    std::string path;
    path.reserve(first.size() + 1 + second.size());
    path.append(first);
    if (!first.empty() && !second.empty())
        path += '.';
    return path.append(second);
}

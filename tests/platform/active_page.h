// Activates another code page for its lifetime.
#pragma once

#include <string_view>

#include "platform/code_page.h"

class WithCodePage {
public:
    explicit WithCodePage(std::string_view setting) { SetActiveCodePage(CodePage(setting)); }
    WithCodePage& operator=(WithCodePage&&) = delete;
    ~WithCodePage() { SetActiveCodePage(CodePage()); }
};

// Writes whole modules of a generated project: what the designer wrote, declarations, procedures.
#pragma once

#include <string>

#include "generate_project_plan.h"

namespace generate {

struct ModuleFile {
    std::string text;
    std::size_t lines = 0;
};

ModuleFile WriteModule(Plan& plan, int module);

/// The text of the project file, which lists the modules in the order of the plan.
std::string WriteProjectFile(Plan& plan);

}  // namespace generate

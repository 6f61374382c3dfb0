#include "generate_project.h"

#include <fstream>
#include <stdexcept>
#include <string_view>

#include "generate_project_module.h"
#include "generate_project_plan.h"

namespace {

void WriteFile(const std::filesystem::path& path, std::string_view text) {
    std::ofstream file(path, std::ios::binary);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    if (!file)
        throw std::runtime_error("Can't write " + path.string());
}

}  // namespace

GeneratedProject GenerateProject(const std::filesystem::path& directory, std::size_t lines, unsigned seed) {
    std::filesystem::create_directories(directory);
    generate::Plan plan(lines, seed);
    GeneratedProject project;
    project.modules = plan.modules.size();
    for (std::size_t i = 0; i < plan.modules.size(); ++i) {
        const generate::ModuleFile file = generate::WriteModule(plan, static_cast<int>(i));
        WriteFile(directory / plan.modules[i].fileName, file.text);
        project.lines += file.lines;
        project.bytes += file.text.size();
    }
    const std::filesystem::path projectFile = directory / (plan.projectName + ".vbp");
    WriteFile(projectFile, generate::WriteProjectFile(plan));
    project.projectFile = projectFile.string();
    return project;
}

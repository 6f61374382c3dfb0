#include "shell/program.h"

#include <filesystem>
#include <system_error>

#include "shell/operations.h"
#include "shell/version.h"

std::string ProgramVersion() {
    return OSTRIVANE_VERSION;
}

std::string GetAppPathWithSlash() {
    std::error_code failed;
    std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failed);
    if (failed)
        program = std::filesystem::current_path(failed) / "program";
    std::string directory = program.parent_path().string();
    if (directory.empty() || directory.back() != '/')
        directory += '/';
    return directory;
}

void Version_Record(Registry& registry, const std::string& version) {
    static constexpr std::string_view kKey = "Software\\Ostrivane";
    if (registry.ReadValue(RegistryRoot::LocalMachine, kKey, "Version") == version)
        return;
    if (const int result = registry.WriteValue(RegistryRoot::LocalMachine, kKey, "Version", version))
        Tell("Error during program start: you must have administrator rights! " + std::to_string(result));
}

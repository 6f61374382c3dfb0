#include "platform/windows_paths.h"

#include <algorithm>
#include <cstdlib>

#include "platform/ascii.h"
#include "platform/class_registry.h"
#include "platform/files.h"

namespace {

constexpr int kMostVariableLevels = 8;
constexpr std::size_t kLongestPath = 1024;  // a variable can name others that name it

std::string WithBackslashes(std::string_view path) {
    std::string plain(path);
    std::replace(plain.begin(), plain.end(), '/', '\\');
    return plain;
}

// Values that the registry of a fresh prefix need not have.
std::string_view UsualValue(std::string_view name) {
    struct Variable {
        std::string_view name, value;
    };
    static constexpr Variable kVariables[] = {
        {"SystemDrive", "C:"},
        {"SystemRoot", "C:\\windows"},
        {"windir", "C:\\windows"},
        {"ProgramFiles", "C:\\Program Files"},
        {"ProgramFiles(x86)", "C:\\Program Files (x86)"},
        {"ProgramW6432", "C:\\Program Files"},
        {"CommonProgramFiles", "C:\\Program Files\\Common Files"},
        {"CommonProgramFiles(x86)", "C:\\Program Files (x86)\\Common Files"},
    };
    for (const Variable& variable : kVariables)
        if (ascii::SameText(variable.name, name))
            return variable.value;
    return {};
}

bool IsPrefix(const Files& files, const std::string& directory) {
    return files.FileExists(directory + "/system.reg");
}

}  // namespace

bool HasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' && ascii::Lower(path[0]) >= 'a' && ascii::Lower(path[0]) <= 'z';
}

std::string FindWinePrefix(const Files& files, std::string_view setting) {
    if (setting == "none")
        return {};
    if (!setting.empty())
        return std::string(setting);
    if (const char* const given = std::getenv("WINEPREFIX"); given && given[0] == '/')
        return IsPrefix(files, given) ? given : std::string();
    const char* const home = std::getenv("HOME");
    if (!home || home[0] != '/')
        return {};
    std::string usual = std::string(home) + "/.wine";
    return IsPrefix(files, usual) ? usual : std::string();
}

std::string WindowsPaths::Plain(std::string_view path) const {
    path = ascii::Trim(path);
    // After the quotes there may be arguments.
    if (path.starts_with('"'))
        path = path.substr(1, std::min(path.find('"', 1), path.size()) - 1);
    std::string plain = Expanded(path, 0);
    constexpr std::string_view kUnc = "\\\\?\\UNC\\";
    constexpr std::string_view kLong = "\\\\?\\";
    if (ascii::SameText(std::string_view(plain).substr(0, kUnc.size()), kUnc))
        return "\\\\" + plain.substr(kUnc.size());
    return plain.starts_with(kLong) ? plain.substr(kLong.size()) : plain;
}

std::string WindowsPaths::Expanded(std::string_view path, int depth) const {
    std::string expanded;
    while (!path.empty() && expanded.size() <= kLongestPath) {
        const std::size_t open = std::min(path.find('%'), path.size());
        const std::size_t close = open == path.size() ? open : std::min(path.find('%', open + 1), path.size());
        expanded.append(path.substr(0, open));
        if (close == path.size()) {
            expanded.append(path.substr(open));
            break;
        }
        const std::string_view name = path.substr(open + 1, close - open - 1);
        const std::string value = depth < kMostVariableLevels ? VariableValue(name) : std::string();
        if (value.empty()) {
            // The second "%" may begin another name.
            expanded.append(path.substr(open, close - open));
            path.remove_prefix(close);
        } else {
            expanded.append(value.find('%') == std::string::npos ? value : Expanded(value, depth + 1));
            path.remove_prefix(close + 1);
        }
    }
    return expanded;
}

std::string WindowsPaths::VariableValue(std::string_view name) const {
    if (name.empty())
        return {};
    // The first is a link to the second, which a text need not have followed.
    for (const std::string_view control : {"CurrentControlSet", "ControlSet001"}) {
        const std::string key = "System\\" + std::string(control) + "\\Control\\Session Manager\\Environment";
        if (const auto value = registry_.ReadValue(RegistryRoot::LocalMachine, key, name))
            return *value;
    }
    struct Directory {
        std::string_view variable, value;
    };
    static constexpr Directory kDirectories[] = {{"ProgramFiles", "ProgramFilesDir"},
                                                 {"ProgramFiles(x86)", "ProgramFilesDir (x86)"},
                                                 {"CommonProgramFiles", "CommonFilesDir"},
                                                 {"CommonProgramFiles(x86)", "CommonFilesDir (x86)"}};
    for (const Directory& directory : kDirectories)
        if (ascii::SameText(directory.variable, name))
            if (const auto value = registry_.ReadValue(RegistryRoot::LocalMachine,
                                                       "Software\\Microsoft\\Windows\\CurrentVersion", directory.value))
                return *value;
    return std::string(UsualValue(name));
}

std::vector<std::string> WindowsPaths::PlacesOf(std::string_view path) const {
    std::vector<std::string> places;
    const std::string plain = WithBackslashes(Plain(path));
    constexpr std::string_view kNative = "unix\\";
    if (ascii::SameText(std::string_view(plain).substr(0, kNative.size()), kNative)) {
        std::string native = plain.substr(kNative.size() - 1);
        std::replace(native.begin(), native.end(), '\\', '/');
        places.push_back(std::move(native));
    } else if (HasDrive(plain)) {
        AddPlaces(places, plain);
    } else if (plain.find('\\') == std::string::npos && !plain.empty()) {
        places = SystemPlacesOf(plain);
    }
    return places;
}

std::vector<std::string> WindowsPaths::SystemPlacesOf(std::string_view fileName) const {
    std::vector<std::string> places;
    for (const std::string_view directory : {"C:\\windows\\system32\\", "C:\\windows\\", "C:\\windows\\system\\"})
        AddPlaces(places, std::string(directory).append(fileName));
    return places;
}

void WindowsPaths::AddPlaces(std::vector<std::string>& places, std::string_view path) const {
    const std::string& prefix = registry_.Texts().winePrefix;
    if (prefix.empty())
        return;
    constexpr std::string_view kSystem = "\\windows\\system32\\";
    const std::string_view inDrive = path.substr(2);
    if (registry_.Is64Bit() && ascii::SameText(inDrive.substr(0, kSystem.size()), kSystem))
        AddPlaces(places, std::string(path.substr(0, 2)) + "\\windows\\syswow64\\" +
                              std::string(inDrive.substr(kSystem.size())));
    const std::string drive(1, ascii::Lower(path[0]));
    const std::string separator = inDrive.starts_with('\\') ? "" : "/";
    std::string place = prefix + "/dosdevices/" + drive + ':' + separator + std::string(inDrive);
    std::replace(place.begin(), place.end(), '\\', '/');
    places.push_back(std::move(place));
    // A copied prefix has often lost its links.
    if (drive == "c") {
        place = prefix + "/drive_c" + separator + std::string(inDrive);
        std::replace(place.begin(), place.end(), '\\', '/');
        places.push_back(std::move(place));
    }
}

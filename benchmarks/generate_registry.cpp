#include "benchmarks/generate_registry.h"

#include <cstdio>
#include <functional>
#include <initializer_list>
#include <utility>

namespace {

constexpr int kClassesPerLibrary = 20;

std::string Guid(int group, int nr) {
    char text[64];
    std::snprintf(text, sizeof text, "{%08X-%04X-11D1-8A2F-00C04FB9%04X}", static_cast<unsigned>(nr) * 2654435761U,
                  static_cast<unsigned>(group), static_cast<unsigned>(nr) & 0xFFFF);
    return text;
}

// Takes a key below the classes with the text of its default value.
using Sink = std::function<void(const std::string& key, const std::string& value)>;

void AddClass(int nr, const Sink& add) {
    const std::string number = std::to_string(nr);
    const std::string key = "CLSID\\" + Guid(0xC1, nr);
    add(key, "Component " + number);
    add(key + "\\InprocServer32",
        "C:\\Windows\\System32\\component" + std::to_string(nr / kClassesPerLibrary) + ".ocx");
    add(key + "\\ProgID", "Component" + number + ".Class.1");
    add(key + "\\ToolboxBitmap32", "C:\\Windows\\System32\\component.ocx, 1");
    add(key + "\\TypeLib", GeneratedTypeLib(nr / kClassesPerLibrary));
    add(key + "\\Version", "1.0");
    add(key + "\\VersionIndependentProgID", "Component" + number + ".Class");
}

void AddLibrary(int nr, const Sink& add) {
    const std::string key = "TypeLib\\" + GeneratedTypeLib(nr) + "\\1.0";
    add(key, "Library " + std::to_string(nr));
    add(key + "\\0\\win32", "C:\\Windows\\System32\\component" + std::to_string(nr) + ".ocx");
    add(key + "\\FLAGS", "0");
    add(key + "\\HELPDIR", "C:\\Windows\\System32");
}

void AddAll(int classes, const Sink& add) {
    for (int nr = 0; nr < classes; ++nr)
        AddClass(nr, add);
    for (int nr = 0; nr < classes; ++nr)
        add("Component" + std::to_string(nr) + ".Class\\CLSID", Guid(0xC1, nr));
    for (int nr = 0; nr * kClassesPerLibrary < classes; ++nr)
        AddLibrary(nr, add);
}

std::string Doubled(const std::string& text) {
    std::string doubled;
    for (const char c : text)
        doubled.append(c == '\\' ? 2 : 1, c);
    return doubled;
}

}  // namespace

std::string GeneratedTypeLib(int nr) {
    return Guid(0x71, nr);
}

std::string GenerateWineRegistry(int classes) {
    std::string text = "WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\Machine\n\n#arch=win64\n";
    AddAll(classes, [&](const std::string& key, const std::string& value) {
        text += "\n[Software\\\\Classes\\\\" + Doubled(key) + "] 1795243313\n#time=1dd7983650750da\n@=\"" +
                Doubled(value) + "\"\n";
    });
    return text;
}

std::string GenerateExportedRegistry(int classes) {
    std::string text = "Windows Registry Editor Version 5.00\r\n";
    AddAll(classes, [&](const std::string& key, const std::string& value) {
        text += "\r\n[HKEY_LOCAL_MACHINE\\Software\\Classes\\" + key + "]\r\n@=\"" + Doubled(value) + "\"\r\n";
    });
    std::string bytes = "\xFF\xFE";
    for (const char c : text)
        bytes.append(1, c).append(1, '\0');
    return bytes;
}

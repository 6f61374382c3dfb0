// The input is the content of a settings file.

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz_driver.h"
#include "platform/settings_file.h"

namespace {

std::vector<std::string> Lines(std::string_view text) {
    std::vector<std::string> lines;
    for (std::size_t end; (end = text.find('\n')) != std::string_view::npos; text.remove_prefix(end + 1))
        lines.emplace_back(text.substr(0, end));
    lines.emplace_back(text);
    return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    MemoryFiles files{{"a.ini", bytes}};
    const std::string text = files.ReadText("a.ini").text;
    SettingsFile settings(files, "a.ini");
    for (const char* section : {"ALLGEMEIN", "VISUALIZATION", ""}) {
        for (const char* key : {"FontSize", "Win32", "OpenSaveDir", ""}) {
            const std::string value = settings.ReadString(section, key, "fallback", 20);
            Require(value.size() <= 20, "a value is cut to the length asked for");
            Require(value.find_first_of("\r\n") == std::string::npos, "a value is part of one line");
            Require(std::isfinite(LeadingNumber(value)), "a number is finite");
        }
    }

    // Skips texts that would begin with a byte order mark in the file and be decoded differently.
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") || text.starts_with("\xEF\xBB\xBF"))
        return 0;
    Require(settings.Save(), "a file in memory can be written");
    const std::string saved = files.ReadText("a.ini").text;
    Require(saved == text || saved == text + "\r\n", "saving without a change keeps every line");

    settings.WriteString("ALLGEMEIN", "FontSize", std::string_view(text).substr(text.size() / 2));
    const std::string written = settings.ReadString("ALLGEMEIN", "FontSize", "");
    Require(settings.Save(), "a file in memory can be written");
    const std::vector<std::string> before = Lines(saved);
    const std::vector<std::string> after = Lines(files.ReadText("a.ini").text);
    const auto front = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first - before.begin();
    const auto back =
        std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend()).first - before.rbegin();
    Require(static_cast<std::size_t>(front + back) + 1 >= before.size(), "a written key changes no other line");

    settings.WriteString("Written by the fuzzer", "Key", "value");
    Require(settings.Save(), "a file in memory can be written");
    SettingsFile again(files, "a.ini");
    Require(again.ReadString("ALLGEMEIN", "FontSize", "") == written, "a written value is read back");
    Require(again.ReadString("written by the FUZZER", "key", "") == "value", "a new section is found");
    return 0;
}

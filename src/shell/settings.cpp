#include "shell/settings.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "platform/code_page.h"
#include "shell/vb_text.h"

namespace {

constexpr const char* kGeneral = "ALLGEMEIN";
constexpr const char* kVisual = "VISUALIZATION";

struct ColourKey {
    const char* key;
    std::int32_t Settings::*colour;
};

constexpr ColourKey kColours[] = {
    {"Col Publics", &Settings::ColPublics},         {"Col Privates", &Settings::ColPrivates},
    {"Col CallLocal", &Settings::ColCallLocal},     {"Col CallIn", &Settings::ColCallIn},
    {"Col CallOut", &Settings::ColCallOut},         {"Col CallMayBe", &Settings::ColCallMayBe},
    {"Col CondCompile", &Settings::ColCondCompile}, {"Col Comment", &Settings::ColComment},
    {"Col String", &Settings::ColString},
};

struct FontKeys {
    const char *size, *name, *bold, *italic;
    FontSetting Settings::*font;
};

constexpr FontKeys kFonts[] = {
    {"FontSize", "FontName", "FontBold", "FontItalic", &Settings::CodeFont},
    {"TreeFontSize", "TreeFontName", "TreeFontBold", "TreeFontItalic", &Settings::TreeFont},
};

struct SizeKey {
    const char* key;
    std::string WindowSize::*member;
};

const SizeKey kPlaces[] = {{"Top", &WindowSize::Top},
                           {"Left", &WindowSize::Left},
                           {"Height", &WindowSize::Height},
                           {"Width", &WindowSize::Width}};

const SizeKey kSplitters[] = {{"SplitX_Content", &WindowSize::SplitX_Content},
                              {"SplitY_Content", &WindowSize::SplitY_Content},
                              {"SplitX_Content_Hide", &WindowSize::SplitX_Content_Hide},
                              {"SplitY_Content_Hide", &WindowSize::SplitY_Content_Hide},
                              {"SplitX_Calls", &WindowSize::SplitX_Calls},
                              {"SplitY_Calls", &WindowSize::SplitY_Calls},
                              {"SplitX_Calls_Hide", &WindowSize::SplitX_Calls_Hide},
                              {"SplitY_Calls_Hide", &WindowSize::SplitY_Calls_Hide}};

double ReadNumber(SettingsFile& file, const char* section, const char* key, const std::string& fallback, double lowest,
                  double highest) {
    const double number = LeadingNumber(file.ReadString(section, key, fallback));
    return std::isfinite(number) ? std::fmin(std::fmax(number, lowest), highest) : 0;
}

std::int16_t ReadSmall(SettingsFile& file, const char* key, const char* fallback) {
    return static_cast<std::int16_t>(ReadNumber(file, kGeneral, key, fallback, INT16_MIN, INT16_MAX));
}

std::string NumberText(double number) {
    char text[40];
    std::snprintf(text, sizeof text, "%.7g", number);
    return text;
}

constexpr std::size_t kMostListCharacters = 32767;

}  // namespace

std::vector<std::string> SplitList(std::string_view text) {
    std::vector<std::string> entries;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find(';', from), text.size());
        if (const std::string_view entry = Trim(text.substr(from, end - from)); !entry.empty())
            entries.emplace_back(entry);
        from = end + 1;
    }
    return entries;
}

std::string JoinList(const std::vector<std::string>& entries) {
    std::string text;
    for (const std::string& entry : entries)
        text.append(text.empty() ? "" : ";").append(entry);
    return text;
}

Settings Optionen_Ini_Load(SettingsFile& file) {
    Settings settings;
    settings.OpenSaveDir = file.ReadString(kGeneral, "OpenSaveDir", "1", 1024);
    settings.Win32 = ReadSmall(file, "Win32", "1");
    settings.LoadLibs = ReadSmall(file, "LoadLibs", "1");
    settings.ReadCalls = ReadSmall(file, "ReadCalls", "1");
    settings.RefreshAuto = ReadSmall(file, "RefreshAutomatically", "0");
    settings.AskAtClosing = ReadSmall(file, "AskAtClosing", "0");
    settings.ProcVars = ReadSmall(file, "ProcVarsInTreeView", "1");
    settings.GraphLegend = ReadSmall(file, "GraphLegend", "1");
    settings.GraphMap = ReadSmall(file, "GraphMap", "1");
    settings.GraphFrames = ReadSmall(file, "GraphFrames", "0");
    if (file.ReadString(kGeneral, "Language", "english") == "german")
        settings.Language = "german";
    settings.CodePage = CodePage(file.ReadString(kGeneral, "CodePage", "auto")).Setting();
    const auto readList = [&file](const char* key) {
        return SplitList(file.ReadString(kGeneral, key, "", kMostListCharacters));
    };
    settings.LibraryFolders = readList("LibraryFolders");
    settings.WinePrefix = file.ReadString(kGeneral, "WinePrefix", "", kMostListCharacters);
    settings.RegistryFiles = readList("RegistryFiles");

    for (const FontKeys& keys : kFonts) {
        FontSetting& font = settings.*keys.font;
        const FontSetting standard = font;
        font.size = static_cast<float>(
            ReadNumber(file, kVisual, keys.size, NumberText(static_cast<double>(standard.size)), -1000, 1000));
        if (font.size == 0)
            font.size = standard.size;
        font.name = file.ReadString(kVisual, keys.name, standard.name);
        if (font.name.empty())
            font.name = standard.name;
        font.bold = ReadNumber(file, kVisual, keys.bold, "0", -1e9, 1e9) != 0;
        font.italic = ReadNumber(file, kVisual, keys.italic, "0", -1e9, 1e9) != 0;
    }
    for (const ColourKey& key : kColours) {
        std::int32_t& colour = settings.*key.colour;
        colour =
            static_cast<std::int32_t>(ReadNumber(file, kVisual, key.key, std::to_string(colour), INT32_MIN, INT32_MAX));
    }
    return settings;
}

void Optionen_Ini_Save(SettingsFile& file, const Settings& settings) {
    file.WriteString(kGeneral, "win32", std::to_string(settings.Win32));
    file.WriteString(kGeneral, "LoadLibs", std::to_string(settings.LoadLibs));
    file.WriteString(kGeneral, "ReadCalls", std::to_string(settings.ReadCalls));
    file.WriteString(kGeneral, "RefreshAutomatically", std::to_string(settings.RefreshAuto));
    file.WriteString(kGeneral, "AskAtClosing", std::to_string(settings.AskAtClosing));
    file.WriteString(kGeneral, "ProcVarsInTreeView", std::to_string(settings.ProcVars));
    file.WriteString(kGeneral, "Language", settings.Language);
    file.WriteString(kGeneral, "CodePage", settings.CodePage);
    file.WriteString(kGeneral, "LibraryFolders", JoinList(settings.LibraryFolders));
    file.WriteString(kGeneral, "WinePrefix", settings.WinePrefix);
    file.WriteString(kGeneral, "RegistryFiles", JoinList(settings.RegistryFiles));
    for (const FontKeys& keys : kFonts) {
        const FontSetting& font = settings.*keys.font;
        file.WriteString(kVisual, keys.size, NumberText(static_cast<double>(font.size)));
        file.WriteString(kVisual, keys.name, font.name);
        file.WriteString(kVisual, keys.bold, font.bold ? "1" : "0");
        file.WriteString(kVisual, keys.italic, font.italic ? "1" : "0");
    }
    for (const ColourKey& key : kColours)
        file.WriteString(kVisual, key.key, std::to_string(settings.*key.colour));
    file.Save();
}

void Save_OpenDir(SettingsFile& file, const Settings& settings) {
    file.WriteString(kGeneral, "OpenSaveDir", Trim(settings.OpenSaveDir));
    file.Save();
}

void GraphExtras_Save(SettingsFile& file, const Settings& settings) {
    file.WriteString(kGeneral, "GraphLegend", std::to_string(settings.GraphLegend));
    file.WriteString(kGeneral, "GraphMap", std::to_string(settings.GraphMap));
    file.WriteString(kGeneral, "GraphFrames", std::to_string(settings.GraphFrames));
    file.Save();
}

WindowSize SizeSave_Read(SettingsFile& file) {
    WindowSize size;
    size.maximised = file.ReadString(kGeneral, "MaxSize", "") == "1";
    for (const SizeKey& place : kPlaces)
        size.*place.member = file.ReadString(kGeneral, place.key, "");
    for (const SizeKey& splitter : kSplitters)
        size.*splitter.member = file.ReadString(kGeneral, splitter.key, "");
    // A stored 0 means "not set" for these two: they get their default position.
    if (size.SplitX_Content == "0")
        size.SplitX_Content.clear();
    if (size.SplitY_Content == "0")
        size.SplitY_Content.clear();
    return size;
}

void SizeSave_Write(SettingsFile& file, const WindowSize& size) {
    file.WriteString(kGeneral, "MaxSize", size.maximised ? "1" : "0");
    if (!size.maximised)
        for (const SizeKey& place : kPlaces)
            file.WriteString(kGeneral, place.key, size.*place.member);
    for (const SizeKey& splitter : kSplitters)
        file.WriteString(kGeneral, splitter.key, size.*splitter.member);
    file.Save();
}

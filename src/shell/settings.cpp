#include "shell/settings.h"

#include <cmath>
#include <cstdio>

#include "platform/code_page.h"
#include "shell/clsText.h"
#include "shell/vb_text.h"

std::string gOpenSaveDir;
std::int16_t gOptWin32 = 1;
std::int16_t gOptLoadLibs = 1;
std::int16_t gOptProcVars = 1;
std::string gOptCodePage = "auto";
FontSetting gCodeFont{10, "Courier New"};
FontSetting gTreeFont{8, "MS Sans Serif"};
std::int32_t gColPublics, gColPrivates, gColCallLocal, gColCallIn, gColCallOut, gColCallMayBe, gColCondCompile,
    gColComment, gColString;
std::string gSplitMode = "Content";
std::string gContentMode = "Code";
std::string gIniFile;
std::vector<std::pair<std::string, std::string>> gCondComps;

namespace {

constexpr const char* kGeneral = "ALLGEMEIN";
constexpr const char* kVisual = "VISUALIZATION";

struct ColourKey {
    const char* key;
    std::int32_t standard;
    std::int32_t* colour;
};

const ColourKey kColours[] = {
    {"Col Publics", 255, &gColPublics},           {"Col Privates", 16744448, &gColPrivates},
    {"Col CallLocal", 16744448, &gColCallLocal},  {"Col CallIn", 8421631, &gColCallIn},
    {"Col CallOut", 255, &gColCallOut},           {"Col CallMayBe", 8388736, &gColCallMayBe},
    {"Col CondCompile", 32896, &gColCondCompile}, {"Col Comment", 30720, &gColComment},
    {"Col String", 9868950, &gColString},
};

struct FontKeys {
    const char *size, *name, *bold, *italic;
    float standardSize;
    const char* standardName;
    FontSetting* font;
};

const FontKeys kFonts[] = {
    {"FontSize", "FontName", "FontBold", "FontItalic", 10, "Courier New", &gCodeFont},
    {"TreeFontSize", "TreeFontName", "TreeFontBold", "TreeFontItalic", 8, "MS Sans Serif", &gTreeFont},
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

}  // namespace

void Optionen_Defaults() {
    gOpenSaveDir = "1";
    gOptWin32 = gOptLoadLibs = gOptProcVars = 1;
    gOptCodePage = "auto";
    gText.Language = "english";
    for (const FontKeys& keys : kFonts)
        *keys.font = {keys.standardSize, keys.standardName};
    for (const ColourKey& colour : kColours)
        *colour.colour = colour.standard;
}

void Optionen_Ini_Load(SettingsFile& file) {
    Optionen_Defaults();
    gOpenSaveDir = file.ReadString(kGeneral, "OpenSaveDir", "1", 1024);
    gOptWin32 = ReadSmall(file, "Win32", "1");
    gOptLoadLibs = ReadSmall(file, "LoadLibs", "1");
    gOptProcVars = ReadSmall(file, "ProcVarsInTreeView", "1");
    gText.Language = file.ReadString(kGeneral, "Language", "english");
    if (gText.Language != "german")
        gText.Language = "english";
    SetActiveCodePage(CodePage(file.ReadString(kGeneral, "CodePage", "auto")));
    gOptCodePage = ActiveCodePage().Setting();

    for (const FontKeys& keys : kFonts) {
        FontSetting& font = *keys.font;
        font.size =
            static_cast<float>(ReadNumber(file, kVisual, keys.size, NumberText(keys.standardSize), -1000, 1000));
        if (font.size == 0)
            font.size = keys.standardSize;
        font.name = file.ReadString(kVisual, keys.name, keys.standardName);
        if (font.name.empty())
            font.name = keys.standardName;
        font.bold = ReadNumber(file, kVisual, keys.bold, "0", -1e9, 1e9) != 0;
        font.italic = ReadNumber(file, kVisual, keys.italic, "0", -1e9, 1e9) != 0;
    }
    for (const ColourKey& colour : kColours)
        *colour.colour = static_cast<std::int32_t>(
            ReadNumber(file, kVisual, colour.key, std::to_string(colour.standard), INT32_MIN, INT32_MAX));
}

void Optionen_Ini_Save(SettingsFile& file) {
    file.WriteString(kGeneral, "win32", std::to_string(gOptWin32));
    file.WriteString(kGeneral, "LoadLibs", std::to_string(gOptLoadLibs));
    file.WriteString(kGeneral, "ProcVarsInTreeView", std::to_string(gOptProcVars));
    file.WriteString(kGeneral, "Language", gText.Language);
    file.WriteString(kGeneral, "CodePage", gOptCodePage);
    for (const FontKeys& keys : kFonts) {
        file.WriteString(kVisual, keys.size, NumberText(static_cast<double>(keys.font->size)));
        file.WriteString(kVisual, keys.name, keys.font->name);
        file.WriteString(kVisual, keys.bold, keys.font->bold ? "1" : "0");
        file.WriteString(kVisual, keys.italic, keys.font->italic ? "1" : "0");
    }
    for (const ColourKey& colour : kColours)
        file.WriteString(kVisual, colour.key, std::to_string(*colour.colour));
    file.Save();
}

void Save_OpenDir(SettingsFile& file) {
    file.WriteString(kGeneral, "OpenSaveDir", Trim(gOpenSaveDir));
    file.Save();
}

void CondComps_Win32_Win16() {
    if (gCondComps.size() < 3)
        gCondComps.resize(3);
    gCondComps[1] = {"win32", gOptWin32 == 1 ? "-1" : "0"};
    gCondComps[2] = {"win16", gOptWin32 == 1 ? "0" : "-1"};
}

WindowSize SizeSave_Read(SettingsFile& file) {
    WindowSize size;
    size.maximised = file.ReadString(kGeneral, "MaxSize", "") == "1";
    for (const SizeKey& place : kPlaces)
        size.*place.member = file.ReadString(kGeneral, place.key, "");
    for (const SizeKey& splitter : kSplitters)
        size.*splitter.member = file.ReadString(kGeneral, splitter.key, "");
    // These two keep their design position for a stored 0.
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

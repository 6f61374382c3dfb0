#include "display/option_values.h"

#include "platform/settings_file.h"
#include "shell/clsText.h"

namespace {

constexpr std::int32_t kFurtherColour = 16711935;

constexpr std::array<std::int32_t*, OptionValues::Further> kSettings = {&gColPublics,     &gColPrivates, &gColCallLocal,
                                                                        &gColCallIn,      &gColCallOut,  &gColCallMayBe,
                                                                        &gColCondCompile, &gColComment,  &gColString};

void PutInForce(const OptionValues& values) {
    gOptWin32 = values.win32;
    gOptLoadLibs = values.loadLibs;
    gOptProcVars = values.procVars;
    gOptCodePage = values.codePage;
    gText.Language = values.language;
    for (std::size_t i = 0; i < kSettings.size(); ++i)
        *kSettings[i] = values.colours[i];
    gCodeFont = values.codeFont;
    gTreeFont = values.treeFont;
}

}  // namespace

OptionValues CurrentOptions() {
    OptionValues values{gText.Language, gOptWin32, gOptLoadLibs, gOptProcVars, gOptCodePage, gCodeFont, gTreeFont, {}};
    for (std::size_t i = 0; i < kSettings.size(); ++i)
        values.colours[i] = *kSettings[i];
    values.colours[OptionValues::Further] = kFurtherColour;
    return values;
}

OptionValues DefaultOptions() {
    // The defaults stand in one place, which sets the globals: they are put back behind it.
    const OptionValues before = CurrentOptions();
    const std::string directory = gOpenSaveDir;
    Optionen_Defaults();
    OptionValues defaults = CurrentOptions();
    PutInForce(before);
    gOpenSaveDir = directory;
    return defaults;
}

bool ApplyOptions(const OptionValues& values, const Files& files, const std::string& programDirectory,
                  SettingsFile& settings) {
    const bool otherLanguage = values.language != gText.Language;
    PutInForce(values);
    CondComps_Win32_Win16();
    if (otherLanguage)
        gText.SetLanguage(files, programDirectory);
    Optionen_Ini_Save(settings);
    return otherLanguage;
}

#include "display/option_values.h"

#include "platform/settings_file.h"
#include "shell/clsText.h"

Settings DefaultOptions(const Settings& settings) {
    Settings defaults;
    defaults.OpenSaveDir = settings.OpenSaveDir;
    defaults.Split = settings.Split;
    defaults.Content = settings.Content;
    defaults.GraphLegend = settings.GraphLegend;
    defaults.GraphMap = settings.GraphMap;
    defaults.GraphFrames = settings.GraphFrames;
    return defaults;
}

bool ApplyOptions(const Settings& values, Settings& inForce, const Files& files, const std::string& programDirectory,
                  SettingsFile& file) {
    inForce = values;
    const bool otherLanguage = values.Language != gText.Language;
    if (otherLanguage) {
        gText.Language = values.Language;
        gText.SetLanguage(files, programDirectory);
    }
    Optionen_Ini_Save(file, values);
    return otherLanguage;
}

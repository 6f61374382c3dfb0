#include "project/project_page.h"

#include <algorithm>
#include <vector>

#include "platform/code_page.h"
#include "platform/settings_file.h"
#include "project/project_file.h"
#include "shell/clsText.h"
#include "shell/operations.h"
#include "shell/settings.h"
#include "shell/words.h"

namespace {

constexpr std::string_view kSection = "CODEPAGES";
constexpr std::size_t kMostProjects = 50;
constexpr std::size_t kLongestPath = 4096;

struct Choice {
    std::string path;
    std::string page;
};

// Newest first.
std::vector<Choice> Choices(SettingsFile& file) {
    std::vector<Choice> choices;
    for (std::size_t nr = 1; nr <= kMostProjects; ++nr) {
        const std::string number = std::to_string(nr);
        std::string path = file.ReadString(kSection, "Project" + number, "", kLongestPath);
        if (path.empty())
            break;
        choices.push_back({std::move(path), file.ReadString(kSection, "Page" + number, "")});
    }
    return choices;
}

void Store(SettingsFile& file, const std::vector<Choice>& choices, std::size_t before) {
    for (std::size_t nr = 1; nr <= std::min(std::max(choices.size(), before), kMostProjects); ++nr) {
        const std::string number = std::to_string(nr);
        const Choice choice = nr <= choices.size() ? choices[nr - 1] : Choice();
        file.WriteString(kSection, "Project" + number, choice.path);
        file.WriteString(kSection, "Page" + number, choice.page);
    }
    file.Save();
}

}  // namespace

std::string FittingCodePage(const Files& files, std::string_view projektDir, std::string_view projectText) {
    std::vector<std::string_view> lines;
    ForEachLine(projectText, [&lines](std::string_view line) {
        if (IsModuleLine(line) && !IsValidUtf8(line))
            lines.push_back(line);
    });
    std::string_view best;
    int most = 0;
    if (!lines.empty())
        for (const CodePageName& known : SupportedCodePages()) {
            const CodePage page(known.number);
            int found = 0;
            for (const std::string_view line : lines)
                found += files.FileExists(Get_Pfad_Aus_ModulEintrag(projektDir, page.ToUtf8(line)));
            if (found > most) {
                most = found;
                best = known.number;
            }
        }
    return std::string(best == "1252" ? std::string_view() : best);
}

std::string ChooseCodePage(const Files& files, SettingsFile& file, const Settings& settings, const std::string& path) {
    if (settings.CodePage != "auto")
        return settings.CodePage;
    std::vector<Choice> choices = Choices(file);
    for (const Choice& choice : choices)
        if (choice.path == path)
            return choice.page;
    std::string page = FittingCodePage(files, modMain::DirOrFileName(path, 1), files.ReadText(path).text);
    if (page.empty())
        return settings.CodePage;
    if (!AskYesNo(Filled(gText.TextNr(Text::AskCodePage), {NameOfCodePage(page)})))
        page = settings.CodePage;
    const std::size_t before = choices.size();
    choices.insert(choices.begin(), {path, page});
    Store(file, choices, before);
    return page;
}

void ForgetCodePage(SettingsFile& file, const std::string& path) {
    std::vector<Choice> choices = Choices(file);
    const std::size_t before = choices.size();
    if (std::erase_if(choices, [&path](const Choice& choice) { return choice.path == path; }) > 0)
        Store(file, choices, before);
}

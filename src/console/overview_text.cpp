#include "console/overview_text.h"

#include <algorithm>
#include <cstdio>

#include "console/labelled_lines.h"
#include "findings/project_overview.h"
#include "platform/code_page.h"
#include "shell/clsText.h"

namespace {

constexpr int kWidth = 31;  // of the labels

std::string Share(int part, int whole) {
    if (whole == 0)
        return {};
    char share[24];
    std::snprintf(share, sizeof share, "  %5.1f %%", 100.0 * part / whole);
    return share;
}

}  // namespace

std::string OverviewText(const ProjectOverview& overview) {
    const auto utf8 = [](std::string_view bytes) { return ActiveCodePage().ToUtf8(bytes); };
    std::string text = utf8(overview.name) + "\n";
    const auto line = [&text](Text label, const std::string& value, std::string_view indent = "  ") {
        AddLabelledLine(text, std::string(indent).append(Utf8TextNr(label)), value, kWidth);
    };
    const auto number = [&line](Text label, int value, const std::string& share = {}, std::string_view indent = "  ") {
        line(label, RightAligned(value) + share, indent);
    };
    line(Text::ProjectType, utf8(overview.type));
    line(Text::StartUpObject, overview.startUp.empty() ? Utf8TextNr(Text::NoStartUp) : utf8(overview.startUp));
    number(Text::AllModules, overview.AllModules());
    number(Text::StandardModules, overview.standardModules, {}, "    ");
    number(Text::CountForms, overview.forms, {}, "    ");
    number(Text::CountClassModules, overview.classModules, {}, "    ");
    number(Text::CountUserControls, overview.userControls, {}, "    ");
    number(Text::FilesMissing, overview.filesMissing);
    number(Text::CodeLines, overview.codeLines, Share(overview.codeLines, overview.AllLines()));
    number(Text::CommentLines, overview.commentLines, Share(overview.commentLines, overview.AllLines()));
    number(Text::BlankLines, overview.blankLines, Share(overview.blankLines, overview.AllLines()));
    number(Text::Procedures, overview.procedures);
    if (overview.deaths) {
        number(Text::CountDead, overview.deaths->dead, Share(overview.deaths->dead, overview.deaths->of));
        number(Text::CountUndead, overview.deaths->undead, Share(overview.deaths->undead, overview.deaths->of));
    } else {
        line(Text::CountDead, Utf8TextNr(Text::DeathsUnknown));
        line(Text::CountUndead, Utf8TextNr(Text::DeathsUnknown));
    }
    number(Text::Problems, overview.problems);
    number(Text::Libraries, overview.libraries);
    number(Text::LibrariesMissing, overview.librariesMissing);
    text += "  " + Utf8TextNr(Text::LargestModules) + "\n";
    for (const ProjectOverview::Module& modul : overview.largest)
        AddLabelledLine(text, "    " + utf8(modul.name),
                        RightAligned(modul.codeLines) + Share(modul.codeLines, overview.codeLines), kWidth);
    return text;
}

#include "findings/report_files.h"

#include <cstdio>
#include <set>

#include "findings/calls_report.h"
#include "findings/deaths_report.h"
#include "findings/structure_report.h"
#include "model/clsProjekt.h"
#include "shell/words.h"

namespace {

std::string PathIn(const std::string& folder, std::string_view name) {
    std::string path = folder;
    if (!path.empty() && path.back() != '/')
        path += '/';
    return path.append(name);
}

// "NNN <module file name><ending>" in a folder. The number keeps files apart whose modules have the same file name in
// different folders.
ReportPath PathOf(ReportKind kind, const std::string& folder) {
    const bool isStructure = kind == ReportKind::Structure;
    if (folder.empty())
        return isStructure ? StructureReportPath : CallsReportPath;
    const std::string_view ending = isStructure ? " Structure.txt" : " Calls.txt";
    return [folder, ending](const clsModul& modul) {
        char number[16];
        std::snprintf(number, sizeof number, "%03d ", modul.number);
        return PathIn(folder, number + std::string(modMain::DirOrFileName(modul.FullPath, 0)).append(ending));
    };
}

std::string DeathsPath(const clsProjekt& projekt, const std::string& folder) {
    return folder.empty() ? DeathsReportPath(projekt)
                          : PathIn(folder, modMain::DirOrFileName(DeathsReportPath(projekt), 0));
}

}  // namespace

std::vector<std::string> ReportFiles(const clsProjekt& projekt, ReportKind kind, const std::string& folder) {
    if (kind == ReportKind::Deaths)
        return {DeathsPath(projekt, folder)};
    std::vector<std::string> files;
    const ReportPath path = PathOf(kind, folder);
    for (const clsModul* modul : projekt.ModulesInReportOrder())
        files.push_back(path(*modul));
    return files;
}

bool WriteReportFiles(const clsProjekt& projekt, ReportKind kind, const std::string& folder) {
    switch (kind) {
        case ReportKind::Structure:
            return AnalyseErgebnisStructure(projekt, PathOf(kind, folder));
        case ReportKind::Calls:
            return AnalyseErgebnisCalls(projekt, PathOf(kind, folder));
        case ReportKind::Deaths:
            return AnalyseErgebnisDeaths(projekt, DeathsPath(projekt, folder));
    }
    return false;
}

ReportPlan PlanReports(const clsProjekt& projekt, ReportKind kind, const std::string& folder) {
    const Files& files = projekt.TheFiles();
    std::set<std::string> paths;
    std::set<std::string> folders;
    ReportPlan plan;
    for (const std::string& file : ReportFiles(projekt, kind, folder)) {
        const std::string path = files.SystemPath(file);
        if (!paths.insert(path).second)
            continue;
        folders.insert(std::string(modMain::DirOrFileName(path, 1)));
        plan.existing += files.FileExists(path);
    }
    plan.files = static_cast<int>(paths.size());
    plan.folders = static_cast<int>(folders.size());
    if (folders.size() == 1)
        plan.folder = *folders.begin();
    return plan;
}

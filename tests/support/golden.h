// Compares reports of the sample project with files in tests/golden; UPDATE_GOLDEN=1 rewrites these files.
#pragma once

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "model/clsProjekt.h"
#include "project/project_file.h"
#include "project/start.h"
#include "shell/errors.h"
#include "shell/words.h"

inline const std::filesystem::path kSourceDirectory = OSTRIVANE_SOURCE_DIR;

/// Reads the sample from disk into gProjekt.
inline void ReadSample() {
    static DiskFiles files;
    NewProject(files, (kSourceDirectory / "samples/ToolHire/ToolHire.vbp").string());
    Projekt_Laden(*gProjekt);
    EXPECT_TRUE(gProjekt->problems.All().empty());
    ASSERT_EQ(gProjekt->CountAllModules(), 14);
}

/// @param name  name of the golden file without ".txt"
inline void ExpectGolden(const std::string& report, const std::string& directory, const std::string& name) {
    SCOPED_TRACE(name);
    const std::filesystem::path golden = kSourceDirectory / "tests/golden" / directory / (name + ".txt");
    if (std::getenv("UPDATE_GOLDEN"))
        std::ofstream(golden, std::ios::binary) << report;
    std::ostringstream bytes;
    bytes << std::ifstream(golden, std::ios::binary).rdbuf();
    EXPECT_EQ(report, bytes.str());
}

/// One golden file for a module of each kind: a standard module with a type, a class with an enumeration and
/// properties, a form, a user control.
template <class Report>
void ExpectGoldenModules(Report report, const std::string& directory) {
    std::vector<std::string_view> missing{"modStore.bas", "clsHire.cls", "frmReturn.frm", "ctlLateBadge.ctl"};
    for (const clsModul* modul : gProjekt->AllModules()) {
        const std::string_view file = modMain::DirOrFileName(modul->FullPath, 0);
        if (std::erase(missing, file) == 1)
            ExpectGolden(report(*modul), directory, std::string(file));
    }
    EXPECT_THAT(missing, testing::IsEmpty());
}

/// A report with "|" for each line end and ">" for each tab.
inline std::string OnOneLine(std::string_view report) {
    return Replace(Replace(report, vbCrLf, "|"), "\t", ">");
}

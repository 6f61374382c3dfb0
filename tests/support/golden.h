// Compares reports of the sample project with files in tests/golden; UPDATE_GOLDEN=1 rewrites these files.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

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

/// One golden file for each module.
template <class Report>
void ExpectGoldenModules(Report report, const std::string& directory) {
    for (const clsModul* modul : gProjekt->AllModules())
        ExpectGolden(report(*modul), directory, std::string(modMain::DirOrFileName(modul->FullPath, 0)));
}

/// A report with "|" for each line end and ">" for each tab.
inline std::string OnOneLine(std::string_view report) {
    return Replace(Replace(report, vbCrLf, "|"), "\t", ">");
}

// Runs the program as users and scripts do: in a directory of the test's own.
#pragma once

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>

#include "platform/code_page.h"
#include "platform/temp_directory.h"

using testing::HasSubstr;
using testing::Not;
using Json = nlohmann::json;

namespace fs = std::filesystem;

inline const fs::path kSource = OSTRIVANE_SOURCE_DIR;
inline const std::string kSample = "samples/ToolHire/ToolHire.vbp";

struct Outcome {
    int status = -1;
    std::string out;
    std::string err;
};

class ReportProgram : public testing::Test {
protected:
    // Runs the program in the test's directory; `arguments` is split as in a shell.
    Outcome Run(const std::string& arguments) const {
        const std::string command =
            "cd '" + dir_.Path() + "' && '" OSTRIVANE_REPORT_PROGRAM "' " + arguments + " > .out 2> .err";
        const int result = std::system(command.c_str());
        return {WIFEXITED(result) ? WEXITSTATUS(result) : -1, dir_.Bytes(".out"), dir_.Bytes(".err")};
    }
    Json RunJson(const std::string& arguments) const {
        const Outcome run = Run("--quiet --no-reports --no-calls --json - " + arguments);
        EXPECT_EQ(run.err, "");
        EXPECT_TRUE(IsValidUtf8(run.out));
        return Json::parse(run.out);
    }
    void CopySample() const { fs::copy(kSource / "samples", dir_.Path("samples"), fs::copy_options::recursive); }
    // Writes P.vbp with one module.
    void WriteProject(std::string_view module = "Dim a\n", std::string_view furtherLines = "") const {
        dir_.Write("P.vbp", "Module=A; A.bas\n" + std::string(furtherLines));
        dir_.Write("A.bas", module);
    }
    // All files of a directory with their content.
    std::map<std::string, std::string> Files(const std::string& directory) const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(dir_.Path(directory)))
            if (entry.is_regular_file()) {
                const std::string name = fs::relative(entry.path(), dir_.Path(directory)).string();
                files[name] = dir_.Bytes(directory + "/" + name);
            }
        return files;
    }
    // The names of those files, each followed by "; ".
    std::string FileNames(const std::string& directory) const {
        std::string names;
        for (const auto& [name, bytes] : Files(directory))
            names += name + "; ";
        return names;
    }

    TempDirectory dir_;
    WithEnvironment configuration_{"XDG_CONFIG_HOME", dir_.Path("config").c_str()};
};

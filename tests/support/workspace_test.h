// A workspace whose project is in memory.
#pragma once

#include <optional>

#include "display/workspace.h"
#include "support/project_test.h"

class WorkspaceTest : public ProgramState {
protected:
    using Modules = std::initializer_list<std::pair<std::string, std::string_view>>;

    /// Writes a module that has the name of its file.
    void Save(const std::string& file, std::string_view text) {
        files_.WriteWhole(file, "Attribute VB_Name = \"" + file.substr(0, file.find('.')) + "\"\r\n" + Vb(text).text);
    }
    /// Writes these modules and a project of them, and opens it.
    void Open(Modules modules) {
        std::string project = "Type=Exe\r\n";
        for (const auto& [file, text] : modules) {
            project += (file.ends_with(".cls") ? "Class=x; " : "Module=x; ") + file + "\r\n";
            Save(file, text);
        }
        files_.WriteWhole("App.vbp", project);
        ASSERT_TRUE(workspace_.Open("App.vbp"));
    }
    void OpenAndRead(Modules modules) {
        Open(modules);
        ASSERT_TRUE(workspace_.ReadCalls());
    }

    MemoryFiles files_;
    Settings settings_;
    int ended_ = 0;
    int edgesGone_ = 0;
    std::optional<int> edgesGoneAtFirstRun_;
    std::vector<std::string> asked_;  // which modules may be read again
    bool mayReadAgain_ = false;
    Workspace workspace_{gProjekt,
                         files_,
                         settings_,
                         {.run =
                              [this](const std::string&, bool, const auto& run) {
                                  if (!edgesGoneAtFirstRun_)
                                      edgesGoneAtFirstRun_ = edgesGone_;
                                  return RunOperation(run);
                              },
                          .ends = [this] { ++ended_; },
                          .edgesGo = [this] { ++edgesGone_; },
                          .askReadAgain =
                              [this](const std::vector<std::string>& paths) {
                                  asked_.insert(asked_.end(), paths.begin(), paths.end());
                                  return mayReadAgain_;
                              }}};
};

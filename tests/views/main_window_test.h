// The fixtures of tests that need the whole main window.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "model/clsProjekt.h"
#include "platform/settings_file.h"
#include "platform/temp_directory.h"
#include "views/frm_main.h"
#include "window_texts.h"

/// A main window whose settings and projects are files in a directory of its own.
class MainWindowTest : public WindowTest {
protected:
    MainWindowTest() : settings_(files_, directory_.Path("Ostrivane.ini")) {}

    void ShowWindow(const Settings& settings = Settings(), QSize size = {1200, 800}) {
        window_ = std::make_unique<frmMain>(files_, settings_, settings, ProgramDirectory());
        window_->resize(size);
        window_->show();
    }
    [[nodiscard]] QAction& Command(const char* name) const { return ChildOf<QAction>(*window_, name); }
    template <class Widget>
    [[nodiscard]] Widget& Find() const {
        return ChildOf<Widget>(*window_);
    }
    [[nodiscard]] QString StatusText() const { return ChildOf<QLabel>(*window_->statusBar()).text(); }
    /// Presses a button of the next question and notes what was asked.
    void AnswerNext(QMessageBox::StandardButton answer) {
        OnNext<QMessageBox>([this, answer](QMessageBox& box) {
            asked_.push_back(box.text());
            box.button(answer)->click();
        });
    }

    TempDirectory directory_;
    SettingsFile settings_;
    QStringList asked_;
    std::unique_ptr<frmMain> window_;
};

/// The main window with a copy of the sample, so that tests can change its files and write reports beside them.
class SampleWindow : public MainWindowTest {
protected:
    explicit SampleWindow(const Settings& settings = Settings()) {
        std::filesystem::copy(ProgramDirectory() + "samples", directory_.Path("samples"),
                              std::filesystem::copy_options::recursive);
        ShowWindow(settings);
    }

    [[nodiscard]] std::string Project() const { return directory_.Path(In("ToolHire.vbp")); }
    void Open() {
        window_->OpenProject(Project());
        ASSERT_TRUE(gProjekt);
    }
    [[nodiscard]] std::string TextOf(const std::string& file) const { return directory_.Bytes(In(file)); }
    /// Writes a file of the project, at another time than before and some minutes ago, so that nothing waits for it to
    /// settle.
    void Save(const std::string& file, const std::string& bytes) {
        std::filesystem::last_write_time(
            directory_.Write(In(file), bytes),
            std::filesystem::file_time_type::clock::now() - std::chrono::seconds(1000 - ++saved_));
    }
    void Append(const std::string& file, const std::string& bytes) { Save(file, TextOf(file) + bytes); }
    void Remove(const std::string& file) const { std::filesystem::remove(directory_.Path(In(file))); }

private:
    static std::string In(const std::string& file) { return "samples/ToolHire/" + file; }

    int saved_ = 0;
};

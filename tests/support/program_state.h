// The fixture of all tests that use the program-wide state: each test starts with the state of a new process.
#pragma once

#include <gtest/gtest.h>

#include "platform/code_page.h"
#include "platform/files.h"
#include "project/start.h"
#include "shell/clsText.h"

class ProgramState : public testing::Test {
protected:
    ProgramState() { Reset(); }
    ~ProgramState() override { Reset(); }

    /// Takes the texts from the program's own language file; a test has none at first.
    static void Speak(const std::string& language) {
        gText.Language = language;
        gText.SetLanguage(DiskFiles(), OSTRIVANE_SOURCE_DIR "/");
    }

private:
    static void Reset() {
        InitGlobals();
        SetActiveCodePage(CodePage());
    }
};

// What tests of windows share: the texts of a language, as the program loads them.
#pragma once

#include <string>

#include "platform/files.h"
#include "shell/clsText.h"
#include "support/program_state.h"

class WindowTest : public ProgramState {
protected:
    WindowTest() { Speak("english"); }

    static std::string ProgramDirectory() { return OSTRIVANE_SOURCE_DIR "/"; }
    void Speak(const std::string& language) {
        gText.Language = language;
        gText.SetLanguage(files_, ProgramDirectory());
    }

    DiskFiles files_;
};

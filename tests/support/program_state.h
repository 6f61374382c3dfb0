// The fixture of all tests that use the program-wide state: each test starts with the state of a new process.
#pragma once

#include <gtest/gtest.h>

#include "platform/code_page.h"
#include "project/start.h"

class ProgramState : public testing::Test {
protected:
    ProgramState() { Reset(); }
    ~ProgramState() override { Reset(); }

private:
    static void Reset() {
        InitGlobals();
        SetActiveCodePage(CodePage());
    }
};

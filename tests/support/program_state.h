// The fixture of all tests that touch the program-wide state: every test finds it as the program starts with it.
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

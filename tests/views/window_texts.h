// What tests of windows share: the texts of a language, as the program loads them, and a hand on the widgets.
#pragma once

#include <gmock/gmock.h>

#include <QtTest>
#include <QtWidgets>
#include <string>

#include "platform/files.h"
#include "shell/clsText.h"
#include "support/program_state.h"
#include "views/qt_text.h"

class WindowTest : public ProgramState {
protected:
    WindowTest() { Speak("english"); }

    static std::string ProgramDirectory() { return OSTRIVANE_SOURCE_DIR "/"; }
    void Speak(const std::string& language) {
        gText.Language = language;
        gText.SetLanguage(files_, ProgramDirectory());
    }
    /// The child of that class, and of that name where one is given.
    template <class Widget>
    static Widget& ChildOf(const QWidget& window, const char* name = nullptr) {
        return *window.findChild<Widget*>(QString::fromLatin1(name));
    }
    /// A click where a check box has its mark.
    static void ClickOn(QWidget& widget) {
        QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(8, widget.height() / 2));
    }

    DiskFiles files_;
};

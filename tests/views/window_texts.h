// Shared by the tests of windows: the texts of a language, and access to widgets.
#pragma once

#include <gmock/gmock.h>

#include <QtTest>
#include <QtWidgets>
#include <string>

#include "shell/settings.h"
#include "support/program_state.h"
#include "widgets/qt_text.h"

class WindowTest : public ProgramState {
protected:
    WindowTest() { Speak("english"); }

    /// Those of a window that opens a project without reading its calls.
    static Settings WithoutCalls() {
        Settings settings;
        settings.ReadCalls = 0;
        return settings;
    }
    static std::string ProgramDirectory() { return OSTRIVANE_SOURCE_DIR "/"; }
    /// The child of that class, and of that name if one is given.
    template <class Widget>
    static Widget& ChildOf(const QWidget& window, const char* name = nullptr) {
        return *window.findChild<Widget*>(QString::fromLatin1(name));
    }
    /// Clicks at the place of a check box's mark.
    static void ClickOn(QWidget& widget) {
        QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(8, widget.height() / 2));
    }
    void TearDown() override {
        EXPECT_EQ(unanswered_, 0) << "a dialog has not appeared";
        ProgramState::TearDown();
    }
    /// Calls `answer` for the next dialog of that class, which must appear.
    template <class Dialog, class Answer>
    void OnNext(Answer answer) {
        ++unanswered_;
        auto* timer = new QTimer(&waiting_);
        QObject::connect(timer, &QTimer::timeout, timer, [this, timer, answer = std::move(answer)] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            timer->stop();  // the answer can open further dialogs
            timer->deleteLater();
            --unanswered_;
            answer(*dialog);
        });
        timer->start(1);
    }

    DiskFiles files_;

private:
    QObject waiting_;  // owns the timers of answers
    int unanswered_ = 0;
};

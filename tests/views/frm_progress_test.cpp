#include "views/frm_progress.h"

#include <stdexcept>

#include "window_texts.h"

namespace {

class ProgressWindow : public WindowTest {
protected:
    ProgressWindow() { form_.showAfter = 0; }

    // Pumps until `done` is true or a second has passed; returns the elapsed milliseconds.
    template <class Done>
    static qint64 PumpUntil(Done done) {
        QElapsedTimer timer;
        timer.start();
        while (!done() && timer.elapsed() < 1000) {
            QTest::qSleep(1);
            DoEvents();
        }
        return timer.elapsed();
    }
    // Runs an operation that begins once the window is shown.
    template <class Operation>
    void RunShown(const char* action, Operation operation) {
        form_.Run(action, [&] {
            PumpUntil([&] { return form_.isVisible(); });
            operation();
        });
    }
    QPushButton& Cancel() { return ChildOf<QPushButton>(form_, "cmdCancel"); }
    // Answers the next question, which must be the one about cancelling.
    void AnswerLater(QMessageBox::StandardButton button) {
        QTimer::singleShot(0, &form_, [this, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            ++questions_;
            EXPECT_EQ(box->text(), TextNr(Text::AskCancel));
            EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::No));
            QTest::mouseClick(box->button(button), Qt::LeftButton);
        });
    }

    frmProgress form_;
    int questions_ = 0;
};

TEST_F(ProgressWindow, ShowsWhatIsDoneAndHowFarItIs) {
    form_.Run("Projekt_Laden", [&] {
        EXPECT_EQ(gAction, "Projekt_Laden");
        gProgress().Caption("Project1");
        gProgress().Label("Loading");
        gProgress().Range(0, 8);
        gProgress().Label("Module1");
        gProgress().Progressiere_mal();
        gProgress().Progressiere_mal();
        PumpUntil([&] { return form_.isVisible(); });
        auto* bar = form_.findChild<QProgressBar*>(QStringLiteral("bar"));
        EXPECT_EQ(form_.windowTitle(), QStringLiteral("Project1"));
        EXPECT_EQ(bar->accessibleName(), QStringLiteral("Loading"));
        EXPECT_EQ(bar->value(), 2);
        EXPECT_EQ(bar->maximum(), 8);
        EXPECT_TRUE(form_.isModal());
    });
    EXPECT_FALSE(form_.isVisible());
    EXPECT_EQ(form_.Tag, "exit");
    EXPECT_FALSE(form_.IsRunning());
}

TEST_F(ProgressWindow, ShortOperationsShowNothingAndNestedOnesJustRun) {
    form_.showAfter = 100000;
    int runs = 0;
    form_.Run("outer", [&] {
        form_.Run("inner", [&] { ++runs; });
        EXPECT_TRUE(form_.IsRunning());
        bool turned = false;
        const EventPump pump = SetEventPump({});
        SetEventPump([&] {
            pump();
            turned = true;
        });
        PumpUntil([&turned] { return turned; });
        SetEventPump(pump);
        EXPECT_TRUE(turned);
        EXPECT_FALSE(form_.isVisible());
        ++runs;
    });
    EXPECT_EQ(runs, 2);
    EXPECT_THROW(form_.Run("any", [] { throw std::runtime_error("no"); }), std::runtime_error);
    EXPECT_FALSE(form_.IsRunning());
    EXPECT_NE(&gProgress(), static_cast<Progress*>(&form_));
}

TEST_F(ProgressWindow, EveryWayOfClosingAsksAndNoGoesOn) {
    RunShown("Who_Calls_Who", [&] {
        AnswerLater(QMessageBox::No);
        QTest::mouseClick(&Cancel(), Qt::LeftButton);
        AnswerLater(QMessageBox::No);
        QTest::keyClick(&form_, Qt::Key_Escape);
        AnswerLater(QMessageBox::No);
        form_.close();
        EXPECT_EQ(questions_, 3);
        EXPECT_FALSE(gAbort);
        EXPECT_EQ(gAction, "Who_Calls_Who");
        EXPECT_TRUE(form_.isVisible());
    });
    EXPECT_FALSE(form_.isVisible());
}

TEST_F(ProgressWindow, YesSetsTheFlagAtOnceAndTheWindowWaitsForTheOperation) {
    qint64 waited = 0;
    const bool finished = form_.Run("Who_Calls_Who", [&] {
        gProgress().Range(0, 10);
        PumpUntil([&] { return form_.isVisible(); });
        QTimer::singleShot(0, &form_, [this] {
            AnswerLater(QMessageBox::Yes);
            QTest::mouseClick(&Cancel(), Qt::LeftButton);
        });
        waited = PumpUntil([] { return gAbort; });
        EXPECT_TRUE(form_.isVisible());
        EXPECT_FALSE(Cancel().isEnabled());
        EXPECT_EQ(gAction, "");
        form_.close();  // no second question
    });
    EXPECT_EQ(questions_, 1);
    EXPECT_LT(waited, 250);
    EXPECT_FALSE(finished);
    EXPECT_TRUE(form_.Run("next", [] { EXPECT_FALSE(gAbort); })) << "a cancel is not for the next operation";
    EXPECT_FALSE(form_.isVisible());
}

TEST_F(ProgressWindow, WithoutItsButtonNothingCancels) {
    form_.SetCancelVisible(false);
    RunShown("ProjektStruktur_Anzeigen", [&] {
        QTest::keyClick(&form_, Qt::Key_Escape);
        form_.close();
        EXPECT_TRUE(form_.isVisible());
        EXPECT_FALSE(gAbort || Cancel().isVisible());
    });
    RunShown("next", [&] { EXPECT_TRUE(Cancel().isVisible()); });
}

TEST_F(ProgressWindow, OtherWindowsPaintButGetNoInput) {
    QPushButton other(QStringLiteral("other"));
    int clicks = 0;
    QObject::connect(&other, &QPushButton::clicked, &other, [&] { ++clicks; });
    other.show();
    RunShown("any", [&] {
        QTest::mouseClick(other.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
        EXPECT_EQ(clicks, 0);
    });
    QTest::mouseClick(other.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(clicks, 1);
}

}  // namespace

#include "views/frm_error.h"

#include "shell/operations.h"
#include "shell/program.h"
#include "support/read_project.h"
#include "views/open_document.h"
#include "views/questions.h"
#include "window_texts.h"

namespace {

class ErrorWindow : public WindowTest {
protected:
    ErrorWindow() {
        form_.EndProcess = [this] { ended_ = true; };
    }

    template <class Widget>
    Widget& Child(const char* name) {
        return ChildOf<Widget>(form_, name);
    }
    // Shows a report and calls `hand` on the window. Returns true if the window appeared.
    template <class Hand>
    bool Report(const ErrorReport& report, Hand hand) {
        bool shown = false;
        QTimer::singleShot(0, &form_, [&] {
            shown = form_.isVisible();
            QApplication::setActiveWindow(&form_);
            if (shown)
                hand();
        });
        form_.ShowReport(report);
        QApplication::processEvents();
        return shown;
    }
    void Click(const char* name) { QTest::mouseClick(&Child<QPushButton>(name), Qt::LeftButton); }

    frmError form_{nullptr, QStringLiteral("help@example.org")};
    bool ended_ = false;
    const ErrorReport report_{91, "Object variable not set", "clsModul: Get_VBZeilenEnde", "c:\\p\\Form1.frm"};
};

TEST_F(ErrorWindow, ShowsWhatHappenedAndWhere) {
    EXPECT_TRUE(Report(report_, [&] {
        const auto& text = Child<QPlainTextEdit>("txtError");
        EXPECT_EQ(text.toPlainText(),
                  QStringLiteral("Error: 91: Object variable not set \n\n->> clsModul: Get_VBZeilenEnde"));
        EXPECT_EQ(QApplication::focusWidget(), &text);
        bool named = false;
        for (const QLabel* label : form_.findChildren<QLabel*>())
            named |= label->text() == TextNr(Text::ErrorInFile, QStringLiteral("Form1.frm"));
        EXPECT_TRUE(named);
        Click("cmdCopy");
        EXPECT_EQ(QApplication::clipboard()->text(), text.toPlainText());
        Click("cmdIgnore");
    }));
}

TEST_F(ErrorWindow, AFileThatCannotBeUsedIsNamedWithCauseAndRemedy) {
    const ErrorReport reading{70, "no", "clsModul: Read_MyCodeName", "Form1.frm", FileError::NoPermission};
    const ErrorReport writing{70, "no", "modMain: AnalyseErgebnisDeaths", "a.txt", FileError::NoPermission};
    for (const auto& [report, heading, file] :
         {std::tuple{reading, Text::FileNotRead, "Form1.frm"}, {writing, Text::FileNotWritten, "a.txt"}})
        Report(report, [&, what = heading, name = file] {
            QStringList texts;
            for (const QLabel* label : form_.findChildren<QLabel*>())
                texts.append(label->text());
            const QString all = texts.join(QLatin1Char('|'));
            EXPECT_TRUE(all.contains(TextNr(what, QString::fromLatin1(name))));
            EXPECT_TRUE(all.contains(TextNr(Text::CauseNoPermission)));
            Click("cmdIgnore");
        });
}

TEST_F(ErrorWindow, EnterAndEscIgnoreAndTheOtherButtonEnds) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        form_.Tag.clear();
        Report(report_, [&] { QTest::keyClick(QApplication::focusWidget(), key); });
        EXPECT_EQ(form_.Tag, "ignore");
    }
    EXPECT_FALSE(ended_);
    Report(report_, [&] { Click("cmdBeenden"); });
    EXPECT_EQ(form_.Tag, "end");
    EXPECT_TRUE(ended_);
}

TEST_F(ErrorWindow, OneAnswerForAKindLastsUntilItIsForgotten) {
    const std::string tag = "modMain: IF_is_TRUE   (check conditional compile expression ";
    const ErrorReport first{13, "a", tag + "\"A\" in form X)", ""};
    const ErrorReport second{13, "b", tag + "\"B\" in form Y)", ""};
    EXPECT_TRUE(Report(first, [&] {
        QTest::keyClick(&Child<QCheckBox>("forAll"), Qt::Key_Space);
        Click("cmdIgnore");
    }));
    EXPECT_FALSE(Report(second, [] {}));
    EXPECT_TRUE(Report(report_, [&] {
        EXPECT_FALSE(Child<QCheckBox>("forAll").isChecked());
        Click("cmdIgnore");
    }));
    form_.ForgetIgnored();
    EXPECT_TRUE(Report(second, [&] { Click("cmdIgnore"); }));
}

TEST_F(ErrorWindow, WordsDoNotDependOnALanguageFile) {
    gText = {};
    Report(report_, [&] {
        EXPECT_EQ(Child<QPushButton>("cmdIgnore").text().remove(QLatin1Char('&')), QStringLiteral("Ignore"));
        EXPECT_EQ(Child<QPushButton>("cmdBeenden").text().remove(QLatin1Char('&')), QStringLiteral("Exit"));
        EXPECT_EQ(Child<QLabel>("labMailTo").text(), QStringLiteral("Mail this Error to:"));
        Click("cmdIgnore");
    });
}

// Records the addresses that the program opens.
class OpenedUrls : public QObject {
    Q_OBJECT
public:
    OpenedUrls() { QDesktopServices::setUrlHandler(QStringLiteral("mailto"), this, "Take"); }
    ~OpenedUrls() override { QDesktopServices::unsetUrlHandler(QStringLiteral("mailto")); }
    Q_SLOT void Take(const QUrl& url) { urls.append(url.toString(QUrl::FullyEncoded)); }
    QStringList urls;
};

TEST_F(ErrorWindow, MailsTheTextToTheSupportAddressWhereThereIsOne) {
    OpenedUrls opened;
    Report(report_, [&] {
        EXPECT_TRUE(Child<QLabel>("labMail").isVisible());
        Q_EMIT Child<QLabel>("labMail").linkActivated(QString());
        Click("cmdIgnore");
    });
    ASSERT_EQ(opened.urls.size(), 1);
    const QString version = ToQString(ProgramVersion());
    EXPECT_EQ(opened.urls[0], QStringLiteral("mailto:help@example.org?subject=Ostrivane%20") + version +
                                  QStringLiteral("%20-%20Error&body=Error%3A%2091%3A%20Object%20variable%20not%20set%20"
                                                 "%0D%0A%0D%0A-%3E%3E%20clsModul%3A%20Get_VBZeilenEnde"));
    OpenMail(QStringLiteral("a@b.c"), QString(), QStringLiteral("1 & 2"));
    EXPECT_EQ(opened.urls[1], QStringLiteral("mailto:a@b.c?body=1%20%26%202"));
    frmError without;
    EXPECT_TRUE(without.findChild<QLabel*>(QStringLiteral("labMail"))->isHidden());
}

// Records the number of further missing files that each question shows.
TEST_F(ErrorWindow, MissingFilesCanBeAnsweredAllAtOnce) {
    MissingFileQuestion question(nullptr);
    QStringList asked;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        asked.append(box->informativeText());
        if (asked.size() == 2)
            QTest::mouseClick(box->checkBox(), Qt::LeftButton, {}, QPoint(5, box->checkBox()->height() / 2));
        QTest::keyClick(box, Qt::Key_Escape);
    });
    watch.start(5);
    SetMissingFilePort([&](std::string_view text, int more) { return question.Ask(text, more); });
    for (int load = 0; load < 2; ++load)
        ReadProject({{"App.vbp",
                      "Module=A; A.bas\r\nModule=B; B.bas\r\nModule=C; C.bas\r\nModule=D; D.bas\r\n"
                      "Form=E.frm\r\nModule=There; There.bas\r\n"},
                     {"There.bas", "Attribute VB_Name = \"There\"\r\nSub S()\r\nEnd Sub\r\n"}});
    SetMissingFilePort({});
    // A stored answer ends with the last file: the second load asks again.
    const QString more = TextNr(Text::FurtherMissingFiles) + QStringLiteral(": ");
    ASSERT_GE(asked.size(), 3);
    EXPECT_EQ(asked.mid(0, 3),
              QStringList({more + QStringLiteral("4"), more + QStringLiteral("3"), more + QStringLiteral("4")}));
    EXPECT_EQ(asked.size(), 2 + 5);
    EXPECT_FALSE(gAbort);
    EXPECT_EQ(gProjekt->Modules.Count(), 1);
}

}  // namespace

#include "frm_error_test.moc"

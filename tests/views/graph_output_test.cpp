// The diagram as a file for others and on paper: the dialogs around it, and what is where on the pages.
#include "views/graph_output.h"

#include <QPrintPreviewDialog>
#include <QPrinter>

#include "canvas/graph_canvas.h"
#include "canvas/graph_picture.h"
#include "platform/temp_directory.h"
#include "support/project_test.h"
#include "views/graph_print.h"
#include "window_texts.h"
#include "xgraph/graph_export.h"

namespace {

class Outputs : public WindowTest {
protected:
    Outputs() {
        Analyse(ReadProject({{"M.bas", "Sub Go()\nStay\nEnd Sub\nSub Stay()\nEnd Sub\n"}}));
        canvas_.SetProject(gProjekt.get());
        Put("m.go", 30000, 30000);
        Put("m.stay", 33000, 33000);
        window_.show();
    }
    void Put(std::string_view path, double left, double top) {
        canvas_.Change({}, [&](XGraph& graph) { graph.GraphObjCreate(&ObjectAt(path), left, top, false); });
    }
    /// Types a name into the next dialog, sets its options, and saves.
    void Export(const std::string& name, const std::function<void(GraphExportDialog&)>& options = {}) {
        OnNext<GraphExportDialog>([this, name, options](GraphExportDialog& dialog) {
            dialog.setDirectory(ToPath(directory_.Path()));
            ChildOf<QLineEdit>(dialog).setText(QString::fromStdString(name));
            if (options)
                options(dialog);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        output_.GraphExport();
    }
    [[nodiscard]] QImage Image(const std::string& name) const { return QImage(ToPath(directory_.Path(name))); }
    [[nodiscard]] GraphPicture Picture() const { return {canvas_.Graph(), settings_}; }
    /// Pages of a PDF that is printed.
    int Print(PrintMode mode) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(ToPath(directory_.Path("print.pdf")));
        EXPECT_TRUE(PrintPicture(printer, Picture(), mode));
        return static_cast<int>(QByteArray::fromStdString(directory_.Bytes("print.pdf")).count("/Type /Page\n"));
    }

    TempDirectory directory_;
    SettingsFile file_{files_, directory_.Path("Ostrivane.ini")};
    Settings settings_;
    QMainWindow window_;
    GraphCanvas canvas_{settings_, &window_};
    QStringList messages_;
    GraphPorts ports_{.run = [](const std::string&, const std::function<void()>& work) { return RunOperation(work); },
                      .showContent = {},
                      .showNow = {},
                      .message = [this](const QString& text) { messages_.append(text); }};
    GraphOutput output_{canvas_, files_, file_, settings_, ports_, &window_};
};

TEST_F(Outputs, TheSuffixOfTheFileIsItsFormat) {
    Export("a.svg");
    EXPECT_THAT(directory_.Bytes("a.svg"), HasSubstr("<svg "));
    Export("a.PDF");
    EXPECT_THAT(directory_.Bytes("a.PDF"), testing::StartsWith("%PDF"));
    Export("a.dot");
    EXPECT_EQ(directory_.Bytes("a.dot"), GraphTextAs(GraphFormat::Dot, canvas_.Graph()));
    EXPECT_EQ(messages_.size(), 3);
    EXPECT_TRUE(messages_.last().endsWith(QStringLiteral("a.dot")));
    // A name with no such suffix gets that of the kind of file, which is the last one.
    Export("b.v2");
    EXPECT_EQ(directory_.Bytes("b.v2.dot"), directory_.Bytes("a.dot"));
    Export("c", [](GraphExportDialog& dialog) { dialog.selectNameFilter(dialog.nameFilters().front()); });
    EXPECT_EQ(Image("c.bmp").size(), Picture().Size().toSize());
}

TEST_F(Outputs, TheFileIsCalledAsTheDiagramIsUnlessTheUserSaysElse) {
    canvas_.SetFileName(ToPath(directory_.Path("calls.ovg")));
    OnNext<GraphExportDialog>([this](GraphExportDialog& dialog) {
        dialog.setDirectory(ToPath(directory_.Path()));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    output_.GraphExport();
    EXPECT_EQ(Image("calls.bmp").size(), Picture().Size().toSize());
}

TEST_F(Outputs, OptionsBelongToTheirFormatsAndAreRemembered) {
    Export("a.png", [](GraphExportDialog& dialog) {
        EXPECT_TRUE(ChildOf<QSpinBox>(dialog, "scale").isEnabled());
        ChildOf<QSpinBox>(dialog, "scale").setValue(3);
        ChildOf<QCheckBox>(dialog, "legend").setChecked(true);
        ChildOf<QCheckBox>(dialog, "caption").setChecked(true);
    });
    const QImage withBoth = Image("a.png");
    EXPECT_GE(withBoth.height(), 3 * (Picture().Size().height() + 100));
    Export("b", [](GraphExportDialog& dialog) {
        EXPECT_EQ(ChildOf<QSpinBox>(dialog, "scale").value(), 3);
        EXPECT_TRUE(ChildOf<QCheckBox>(dialog, "legend").isChecked());
        ChildOf<QCheckBox>(dialog, "legend").setChecked(false);
    });
    const QImage withCaption = Image("b.png");
    EXPECT_LT(withCaption.height(), withBoth.height());
    EXPECT_GT(withCaption.height(), 3 * Picture().Size().height());
    Export("c.svg", [](GraphExportDialog& dialog) {
        EXPECT_FALSE(ChildOf<QSpinBox>(dialog, "scale").isEnabled());
        EXPECT_TRUE(ChildOf<QCheckBox>(dialog, "caption").isEnabled());
    });
    EXPECT_THAT(directory_.Bytes("c.svg"), HasSubstr(", 2 symbols"));
    Export("c.json",
           [](GraphExportDialog& dialog) { EXPECT_FALSE(ChildOf<QCheckBox>(dialog, "caption").isEnabled()); });
}

TEST_F(Outputs, AnExistingFileIsReplacedAfterAQuestion) {
    directory_.Write("a.json", "old");
    OnNext<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Cancel)->click(); });
    Export("a.json");
    EXPECT_EQ(directory_.Bytes("a.json"), "old");
    OnNext<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("File already exists!\nOverwrite?"));
        box.button(QMessageBox::Ok)->click();
    });
    Export("a.json");
    EXPECT_THAT(directory_.Bytes("a.json"), testing::StartsWith("{"));
}

TEST_F(Outputs, WhatCannotBeWrittenIsReportedOnce) {
    RecordingErrors errors;
    Export("no/such/a.svg");
    EXPECT_THAT(errors.tags, ElementsAre("frmMain: GraphExport"));
    // A picture of more pixels than there can be is answered before anything is written.
    Put("m", 900'000, 30000);
    OnNext<QMessageBox>([](QMessageBox& box) {
        EXPECT_TRUE(box.text().contains(QStringLiteral("pixels")));
        box.accept();
    });
    Export("a.png");
    EXPECT_FALSE(std::filesystem::exists(directory_.Path("a.png")));
    EXPECT_TRUE(messages_.isEmpty());
}

TEST_F(Outputs, ACancelledPictureWritesNoFile) {
    struct Canceller : Progress {
        void Progressiere_mal() override { gAbort = true; }
    } canceller;
    Progress* const before = SetProgress(&canceller);
    Export("a.png");
    SetProgress(before);
    EXPECT_FALSE(std::filesystem::exists(directory_.Path("a.png")));
    EXPECT_THAT(messages_, ElementsAre(QStringLiteral("Cancelled: no file was written")));
}

TEST_F(Outputs, FullSizeTakesAsManyPagesAsItNeeds) {
    const QSizeF size = Picture().Size();
    // What fits is one page, with the picture in its middle.
    const std::vector<PrintPage> one = PagesOf(Picture(), size + QSizeF(100, 60));
    ASSERT_EQ(one.size(), 1U);
    EXPECT_EQ(one.front().part, QRectF(QPointF(-50, -30), size + QSizeF(100, 60)));
    // Two columns overlap, and cover it all.
    const std::vector<PrintPage> two = PagesOf(Picture(), {size.width() - 20, size.height() + 60});
    ASSERT_EQ(two.size(), 2U);
    EXPECT_EQ(two[1].column, 2);
    EXPECT_GT(two[0].part.right(), two[1].part.left() + 10);
    EXPECT_LE(two[0].part.left(), 0);
    EXPECT_GE(two[1].part.right(), size.width());
    // The symbols are at two corners: the other corners have nothing on them.
    EXPECT_EQ(PagesOf(Picture(), {150, 150}).size(), 4U) << "of nine";
}

TEST_F(Outputs, PrintingFillsPagesOrFitsOne) {
    EXPECT_EQ(Print(PrintMode::FullSize), 1);
    Put("m", 60000, 30000);
    EXPECT_EQ(Print(PrintMode::FullSize), 3);
    EXPECT_EQ(Print(PrintMode::OnePage), 1);
}

TEST_F(Outputs, APreviewThatIsClosedPrintsNothingAndSaysNothing) {
    bool wasShown = false;
    OnNext<QPrintPreviewDialog>([&wasShown](QPrintPreviewDialog& preview) {
        wasShown = true;
        ChildOf<QAction>(preview, "onePage").trigger();
        preview.reject();
    });
    output_.GraphPrint();
    EXPECT_TRUE(wasShown);
    EXPECT_TRUE(messages_.isEmpty());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace

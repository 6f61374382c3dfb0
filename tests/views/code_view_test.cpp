#include "views/code_view.h"

#include "views/path_line.h"
#include "views/properties_grid.h"
#include "widgets/code_style.h"
#include "widgets/object_tip.h"
#include "window_texts.h"

namespace {

class CodeViews : public WindowTest {
protected:
    CodeViews() {
        view.ApplySettings();
        view.Texte();
    }

    void Show(CodeText code) {
        view.Show(code);
        view.resize(500, 300);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }
    static CodeText Code(std::string text, std::vector<CodeSpan> spans = {}) {
        CodeText code;
        code.text = std::move(text);
        code.spans = std::move(spans);
        code.firstLine = 7;
        return code;
    }
    // "0:4-7 1:0-2": line and range of each coloured run.
    [[nodiscard]] std::string Formats() const {
        std::string dump;
        for (QTextBlock line = view.document()->firstBlock(); line.isValid(); line = line.next())
            for (const QTextLayout::FormatRange& format : line.layout()->formats())
                dump += (dump.empty() ? "" : " ") + std::to_string(line.blockNumber()) + ":" +
                        std::to_string(format.start) + "-" + std::to_string(format.start + format.length);
        return dump;
    }
    [[nodiscard]] QTextCharFormat FormatAt(int line, int nr) const {
        return view.document()->findBlockByNumber(line).layout()->formats().at(nr).format;
    }
    // The middle of a character of the shown text in viewport coordinates.
    [[nodiscard]] QPoint PointAt(int place) const {
        QTextCursor cursor(view.document());
        cursor.setPosition(place);
        const QRect left = view.cursorRect(cursor);
        return {left.left() + view.fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2, left.center().y()};
    }

    Settings settings;
    CodeView view{settings};
};

}  // namespace

TEST_F(CodeViews, SpansColourTheLinesThatTheyCross) {
    Show(Code("Sub S()\r\n  a = b ' c _\r\n d\r\nEnd Sub",
              {{4, 1, Colour::Public}, {11, 1, Colour::CallIn}, {15, 1, Colour::CallMayBe}, {17, 9, Colour::Comment}}));
    EXPECT_EQ(Formats(), "0:4-5 1:2-3 1:6-7 1:8-13 2:0-2");
    EXPECT_EQ(FormatAt(1, 1).underlineStyle(), QTextCharFormat::DotLine);
    EXPECT_EQ(FormatAt(1, 0).underlineStyle(), QTextCharFormat::NoUnderline);
    view.Show(Code("x", {{0, 1, Colour::FunctionResult}}));
    EXPECT_TRUE(FormatAt(0, 0).font().bold());
    view.Show(Code("plain"));
    EXPECT_EQ(Formats(), "");
}

TEST_F(CodeViews, PositionsAreBytesWhateverTheTextIsIn) {
    const CodePage utf8("65001");
    CodeText code = Code("' \xC3\xA4\xC3\xB6\r\nx = y", {{12, 1, Colour::CallOut}});
    code.page = &utf8;
    Show(code);
    EXPECT_EQ(Formats(), "1:4-5");
    view.Select({12, 1});
    EXPECT_EQ(view.textCursor().selectedText(), QStringLiteral("y"));
    EXPECT_EQ(view.SelStart(), 12);
    EXPECT_EQ(view.SelLength(), 1);
}

TEST_F(CodeViews, RightClickAndKeysReportThePosition) {
    Show(Code("Call Foo\r\nCall Bar\r\n"));
    const QSignalSpy clicked(&view, &CodeView::PositionClicked);
    const auto last = [&clicked] { return clicked.isEmpty() ? QVariantList() : clicked.last(); };
    for (int place = 5; place < 8; ++place) {
        QTest::mouseClick(view.viewport(), Qt::RightButton, {}, PointAt(place));
        EXPECT_EQ(last(), (QVariantList{place, 0})) << place;
    }
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, PointAt(9 + 5));
    EXPECT_EQ(last(), (QVariantList{15, 0}));
    QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(last(), (QVariantList{15, 1}));
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, PointAt(9 + 5));  // into the selection
    EXPECT_EQ(last(), (QVariantList{15, 1}));
    EXPECT_EQ(clicked.count(), 6);
}

TEST_F(CodeViews, WhatLeadsOnIsShownAndFollowed) {
    Show(Code("Call Foo\r\nCall Bar\r\n"));
    view.SetWays({[](Pos start, Pos length) { return start == 5 && length == 0; },
                  [](Pos position) { return position >= 5 && position < 8; }});
    const auto pointer = [this](int place) {
        QMouseEvent move(QEvent::MouseMove, PointAt(place), view.viewport()->mapToGlobal(PointAt(place)), Qt::NoButton,
                         Qt::NoButton, {});
        QApplication::sendEvent(view.viewport(), &move);
        return view.viewport()->cursor().shape();
    };
    EXPECT_EQ(pointer(0), Qt::IBeamCursor);
    EXPECT_EQ(pointer(6), Qt::PointingHandCursor);
    EXPECT_EQ(pointer(9 + 5), Qt::IBeamCursor);
    const QSignalSpy clicked(&view, &CodeView::PositionClicked);
    const QSignalSpy callers(&view, &CodeView::CommandAsked);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier, PointAt(6));
    EXPECT_EQ(clicked.count(), 1);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier, PointAt(9 + 5));
    EXPECT_EQ(clicked.count(), 1);
    // After a jump there is no menu; where nothing leads on there is, without the way.
    const auto menuAt = [this](int place, QContextMenuEvent::Reason reason) {
        if (reason == QContextMenuEvent::Mouse)
            QTest::mousePress(view.viewport(), Qt::RightButton, {}, PointAt(place));
        QContextMenuEvent event(reason, PointAt(place), {});
        QApplication::sendEvent(view.viewport(), &event);
        return view.findChild<QMenu*>();
    };
    EXPECT_FALSE(menuAt(5, QContextMenuEvent::Mouse));
    QMenu* menu = menuAt(9 + 5, QContextMenuEvent::Mouse);
    ASSERT_TRUE(menu);
    EXPECT_FALSE(menu->actions().at(0)->isEnabled());
    menu->actions().at(1)->trigger();
    EXPECT_EQ(callers.count(), 1);
    delete menu;
    view.Select({5, 0});
    menu = menuAt(5, QContextMenuEvent::Keyboard);
    ASSERT_TRUE(menu);
    EXPECT_TRUE(menu->actions().at(0)->isEnabled());
    delete menu;
}

TEST_F(CodeViews, RightToLeftWordsKeepTheOrderOfTheLine) {
    CodeText code = Code("\"\xF9\xEC\xE5\" ' \xE4\xF2\xF8\r\n' \xE0");
    const CodePage hebrew("1255");
    code.page = &hebrew;
    code.spans = {{0, 5, Colour::String}, {6, 5, Colour::Comment}, {13, 3, Colour::Comment}};
    Show(code);
    const auto x = [this](char16_t c) { return PointAt(static_cast<int>(view.toPlainText().indexOf(QChar(c)))).x(); };
    EXPECT_LT(x(u'"'), x(u'\u05e9'));
    EXPECT_LT(x(u'\u05e9'), x(u'\''));
    EXPECT_LT(x(u'\''), x(u'\u05e2'));
    EXPECT_LT(x(u'\u05d0'), view.viewport()->width() / 2) << "a line of such words alone begins at the left, too";
    view.selectAll();
    view.copy();
    EXPECT_EQ(QApplication::clipboard()->text(),
              QString::fromUtf8("\"\u05e9\u05dc\u05d5\" ' \u05d4\u05e2\u05e8\n' \u05d0"));
}

TEST_F(CodeViews, PlacesAreSteppedThroughAroundTheEnds) {
    std::string text;
    for (int line = 0; line < 200; ++line)
        text += "x = Foo\r\n";
    Show(Code(text));
    const QSignalSpy changed(&view, &CodeView::PlaceChanged);
    view.MarkPlaces({{4, 3, Colour::CallIn}, {9 * 50 + 4, 3, Colour::CallIn}, {9 * 150 + 4, 3, Colour::CallMayBe}});
    EXPECT_EQ(changed.last(), (QVariantList{1, 3}));
    EXPECT_EQ(view.extraSelections().size(), 3);
    const auto isInSight = [this] { return view.viewport()->rect().contains(view.cursorRect()); };
    QTest::keyClick(&view, Qt::Key_F3);
    EXPECT_EQ(changed.last(), (QVariantList{2, 3}));
    EXPECT_EQ(view.SelStart(), 9 * 50 + 4);
    EXPECT_TRUE(isInSight());
    QTest::keyClick(&view, Qt::Key_F3, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(changed.last(), (QVariantList{3, 3}));
    EXPECT_TRUE(isInSight());
    view.Show(Code("other"));
    EXPECT_EQ(changed.last(), (QVariantList{0, 0}));
    view.NextPlace();
    EXPECT_EQ(changed.count(), 5);
}

TEST_F(CodeViews, CanBeReadButNotTrapped) {
    Show(Code("Sub S()\r\nEnd Sub"));
    view.setFocus();
    QTest::keyClicks(&view, QStringLiteral("abc"));
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(view.toPlainText(), QStringLiteral("Sub S()\nEnd Sub"));
    QTest::keySequence(&view, QKeySequence::SelectAll);
    QTest::keySequence(&view, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Sub S()\nEnd Sub"));
    EXPECT_TRUE(view.tabChangesFocus());
    EXPECT_FALSE(view.accessibleName().isEmpty());
}

TEST_F(CodeViews, ZoomKeepsToItsStepsAndFontFallsBack) {
    settings.CodeFont = {10, "No Such Font At All"};
    view.ApplySettings();
    // Measured, as some fonts of one width do not say that they are fixed.
    EXPECT_EQ(view.fontMetrics().horizontalAdvance(QLatin1Char('i')),
              view.fontMetrics().horizontalAdvance(QLatin1Char('W')));
    EXPECT_EQ(view.font().pointSizeF(), 10);
    Show(Code("x"));
    for (const auto& [key, size] :
         {std::pair(Qt::Key_Plus, 11), {Qt::Key_Equal, 12}, {Qt::Key_Minus, 11}, {Qt::Key_0, 10}}) {
        QTest::keyClick(&view, key, Qt::ControlModifier);
        EXPECT_EQ(view.font().pointSizeF(), size);
    }
    for (int i = 0; i < 30; ++i)
        view.ZoomOut();
    EXPECT_EQ(view.font().pointSizeF(), 4);
}

TEST_F(CodeViews, ToolTipIsAskedForWhatIsUnderThePointer) {
    Show(Code("ab\r\ncd"));
    std::vector<Pos> asked;
    view.SetToolTipSource([&asked](Pos pos) {
        asked.push_back(pos);
        return QString();
    });
    const auto hover = [this](QPoint point) {
        QHelpEvent event(QEvent::ToolTip, point, view.viewport()->mapToGlobal(point));
        QApplication::sendEvent(view.viewport(), &event);
    };
    hover(PointAt(1));
    hover(PointAt(3));
    hover(PointAt(2));                          // after the end of the first line
    hover({5, view.viewport()->height() - 3});  // below all lines
    EXPECT_EQ(asked, (std::vector<Pos>{1, 4}));
    EXPECT_EQ(ToolTipOf({"sub a", "If a < b"}), QStringLiteral("<b>sub a</b><br>If a &lt; b"));
    EXPECT_EQ(ToolTipOf({}), QString());
}

TEST_F(CodeViews, DeadCodeHasAGreyBackgroundFromThePalette) {
    CodeText code = Code("x");
    code.shade = Shade::Grey;
    QPalette palette(view.palette());
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    view.setPalette(palette);
    Show(code);
    const auto ground = [this] { return view.viewport()->palette().color(QPalette::Base); };
    EXPECT_EQ(ground().name(), QStringLiteral("#f0f0f0"));
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Text, Qt::white);
    view.setPalette(palette);
    EXPECT_TRUE(ground().lightness() > 0 && ground().lightness() < 60);
    view.Show(Code("x"));
    EXPECT_EQ(ground(), QColor(Qt::black));
}

TEST_F(CodeViews, PathIsElidedInTheMiddleUntilItHasTheFocus) {
    QWidget window;
    PathLine line(&window);
    QLineEdit other(&window);
    line.setGeometry(0, 0, 120, 24);
    window.show();
    const QString path(60, QLatin1Char('p'));
    line.Show(path.toStdString());
    EXPECT_TRUE(line.text().contains(QChar(0x2026)));
    EXPECT_EQ(line.toolTip(), path);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    other.setFocus();
    line.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(line.selectedText(), path);
    other.setFocus();
    EXPECT_TRUE(line.text().contains(QChar(0x2026)));
}

TEST_F(CodeViews, PropertiesFollowTheLanguageAndCanBeCopied) {
    PropertiesGrid grid;
    grid.Show({{{Text::None, "Name"}, {Text::None, "Gr\xFC\xDF"}}, {{Text::Access, {}}, {Text::Local, {}}}});
    EXPECT_EQ(grid.AsText(), QString::fromUtf8("Name\tGr\u00FC\u00DF\nAccess\tlocal\n"));
    Speak("german");
    grid.Texte();
    grid.Grid().selectRow(1);
    EXPECT_EQ(grid.AsText(), QStringLiteral("Zugriff\tlokal\n"));
}

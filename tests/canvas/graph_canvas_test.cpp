#include "canvas/graph_canvas.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

#include "shell/settings.h"
#include "support/project_test.h"
#include "widgets/key_mime.h"
#include "widgets/qt_text.h"

namespace {

constexpr const char* kCallers =
    "Sub Go()\nStay\nTurn\nEnd Sub\nSub Stay()\nEnd Sub\nSub Turn()\nStay\nEnd Sub\nSub Alone()\nEnd Sub\n";

// A canvas whose symbols are in a row, at normal size, with the middle of the first at the point (100, 100).
class Canvas : public ProgramState {
protected:
    Canvas() { canvas.resize(800, 600); }
    void Put(std::initializer_list<std::string_view> paths) {
        Analyse(ReadProject({{"M.bas", kCallers}}));
        canvas.SetProject(gProjekt.get());
        canvas.show();
        canvas.activateWindow();
        canvas.setFocus();
        QApplication::processEvents();
        double left = 30000;
        canvas.Change({}, [&](XGraph& graph) {
            for (const std::string_view path : paths)
                graph.GraphObjCreate(&ObjectAt(path), left += 3000, 30000, false);
        });
        canvas.ZoomReset();
        const GraphPoint first = At(*paths.begin()).Center();
        canvas.horizontalScrollBar()->setValue(canvas.horizontalScrollBar()->value() +
                                               canvas.mapFromScene(first.x, first.y).x() - 100);
        canvas.verticalScrollBar()->setValue(canvas.verticalScrollBar()->value() +
                                             canvas.mapFromScene(first.x, first.y).y() - 100);
        canvas.Undo().clear();
    }
    const ctlGraphObj& At(std::string_view path) { return *canvas.Graph().WithPath(path); }
    QPoint PointOf(std::string_view path) {
        const GraphPoint centre = At(path).Center();
        return canvas.mapFromScene(centre.x, centre.y);
    }
    void Click(QPoint point, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(canvas.viewport(), Qt::LeftButton, modifiers, point);
    }
    void Drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(canvas.viewport(), button, {}, from);
        QTest::mouseMove(canvas.viewport(), (from + to) / 2);
        QTest::mouseMove(canvas.viewport(), to);
        QTest::mouseRelease(canvas.viewport(), button, {}, to);
    }
    void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&canvas, static_cast<Qt::Key>(key), modifiers);
    }
    std::string Selected() { return Joined(canvas.Graph().GraphSelected(), " ", std::mem_fn(&ctlGraphObj::CodePath)); }
    static QString LastKey(const QSignalSpy& spy) {
        return spy.isEmpty() ? QString() : QString::fromStdString(spy.last().front().value<std::string>());
    }

    Settings settings;
    GraphCanvas canvas{settings};
};

TEST_F(Canvas, DraggingMovesTheSelectionByWholeTwipsAndCanBeUndone) {
    Put({"m.go", "m.stay", "m.turn"});
    const GraphRect before = At("m.go").Frame();
    const double other = At("m.stay").Left;
    Click(PointOf("m.stay"));
    Click(PointOf("m.go"), Qt::ControlModifier);
    Drag(PointOf("m.go"), PointOf("m.go") + QPoint(40, 20));
    EXPECT_EQ(At("m.go").Left, before.left + 40 * 15);
    EXPECT_EQ(At("m.go").Top, before.top + 20 * 15);
    EXPECT_EQ(At("m.stay").Left, other + 40 * 15);
    EXPECT_TRUE(canvas.IsUnsaved());
    canvas.Undo().undo();
    EXPECT_EQ(At("m.go").Frame(), before);
    EXPECT_EQ(At("m.stay").Left, other);
    EXPECT_FALSE(canvas.IsUnsaved());
    canvas.Undo().redo();
    EXPECT_EQ(At("m.stay").Left, other + 40 * 15);
}

TEST_F(Canvas, AClickChoosesAndMovesNothing) {
    Put({"m.go", "m.stay"});
    const QSignalSpy chosen(&canvas, &GraphCanvas::SymbolChosen);
    Click(PointOf("m.stay"));
    EXPECT_EQ(LastKey(chosen), QStringLiteral("m.stay"));
    EXPECT_EQ(canvas.Graph().Active(), &At("m.stay"));
    EXPECT_FALSE(canvas.Undo().canUndo());
    const QSignalSpy activated(&canvas, &GraphCanvas::SymbolActivated);
    QTest::mouseDClick(canvas.viewport(), Qt::LeftButton, {}, PointOf("m.go"));
    EXPECT_EQ(LastKey(activated), QStringLiteral("m.go"));
}

TEST_F(Canvas, TheRubberBandSelectsWhatIsWhollyInIt) {
    Put({"m.go", "m.stay", "m.turn"});
    const QPoint corner = PointOf("m.go") - QPoint(60, 60);
    Drag(PointOf("m.stay") + QPoint(60, 60), corner);
    EXPECT_EQ(Selected(), "m.go m.stay");
    Drag(corner, PointOf("m.stay") + QPoint(0, 60));
    EXPECT_EQ(Selected(), "m.go") << "the other one lies only partly inside";
    Click(corner);
    EXPECT_EQ(Selected(), "");
}

TEST_F(Canvas, TheRightButtonAndSpacePan) {
    Put({"m.go"});
    const int before = canvas.horizontalScrollBar()->value();
    Drag({300, 300}, {250, 300}, Qt::RightButton);
    EXPECT_EQ(canvas.horizontalScrollBar()->value(), before + 50);
    QTest::keyPress(&canvas, Qt::Key_Space);
    Drag({250, 300}, {300, 300});
    QTest::keyRelease(&canvas, Qt::Key_Space);
    EXPECT_EQ(canvas.horizontalScrollBar()->value(), before);
    EXPECT_EQ(canvas.findChild<QMenu*>(), nullptr) << "a drag opens no menu";
}

TEST_F(Canvas, KeysWalkMoveAndDelete) {
    Put({"m.go", "m.stay", "m.turn"});
    const QSignalSpy code(&canvas, &GraphCanvas::CodeAsked);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Selected(), "m.go");
    Press(Qt::Key_Right);
    EXPECT_EQ(Selected(), "m.stay");
    Press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Selected(), "m.turn");
    Press(Qt::Key_Return);
    EXPECT_EQ(LastKey(code), QStringLiteral("m.turn"));
    const double left = At("m.turn").Left;
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_GT(At("m.turn").Left, left);
    canvas.Undo().undo();
    EXPECT_EQ(At("m.turn").Left, left) << "steps that follow each other are one";
    Press(Qt::Key_Delete);
    EXPECT_EQ(canvas.Graph().WithPath("m.turn"), nullptr);
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Selected(), "m.go m.stay");
    canvas.Undo().undo();
    EXPECT_NE(canvas.Graph().WithPath("m.turn"), nullptr);
}

TEST_F(Canvas, TabLeavesAfterTheLastSymbol) {
    Put({"m.go", "m.stay"});
    for (const char* active : {"m.go", "m.stay", "m.stay"}) {
        Press(Qt::Key_Tab);
        EXPECT_EQ(canvas.Graph().Active(), &At(active));
    }
    Press(Qt::Key_Backtab);
    EXPECT_EQ(canvas.Graph().Active(), &At("m.go"));
}

TEST_F(Canvas, ADroppedObjectStandsAtThePointOnce) {
    Put({"m.go"});
    QMimeData mime;
    mime.setData(QString::fromLatin1(kKeyMimeType), "m.alone");
    const QPointF point(300, 200);
    QDragEnterEvent enter(point.toPoint(), Qt::CopyAction, &mime, Qt::LeftButton, {});
    QApplication::sendEvent(canvas.viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(point, Qt::CopyAction, &mime, Qt::LeftButton, {});
    QApplication::sendEvent(canvas.viewport(), &drop);
    const QPointF place = canvas.mapToScene(point.toPoint());
    EXPECT_EQ(At("m.alone").Left, std::round(place.x()));
    EXPECT_EQ(At("m.alone").Top, std::round(place.y()));
    EXPECT_EQ(canvas.Graph().Active(), &At("m.alone"));
    QDropEvent again(QPointF(400, 300), Qt::CopyAction, &mime, Qt::LeftButton, {});
    QApplication::sendEvent(canvas.viewport(), &again);
    EXPECT_EQ(At("m.alone").Left, std::round(place.x()));

    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(QStringLiteral("/a.ovg"))});
    QDragEnterEvent foreign(point.toPoint(), Qt::CopyAction, &file, Qt::LeftButton, {});
    QApplication::sendEvent(canvas.viewport(), &foreign);
    EXPECT_FALSE(foreign.isAccepted()) << "files are for the window";
}

TEST_F(Canvas, ManyShownObjectsFillRowsOfTheView) {
    std::string code;
    constexpr int kProcs = 24;
    for (int nr = 0; nr < kProcs; ++nr)
        code += "Sub P" + std::to_string(nr) + "()\nEnd Sub\n";
    ReadProject({{"M.bas", code}});
    canvas.SetProject(gProjekt.get());
    canvas.show();
    for (int nr = 0; nr < kProcs; ++nr)
        canvas.ShowObject(ObjectAt("m.p" + std::to_string(nr)));
    for (const auto& symbol : canvas.Graph().GraphObjects()) {
        EXPECT_TRUE(canvas.viewport()->rect().contains(PointOf(symbol->CodePath))) << symbol->CodePath;
        for (const auto& other : canvas.Graph().GraphObjects())
            EXPECT_TRUE(symbol == other || !symbol->Frame().Holds(other->Center())) << symbol->CodePath;
    }
    canvas.ShowObject(ObjectAt("m.p3"));
    EXPECT_EQ(canvas.Graph().GraphObjects().size(), static_cast<std::size_t>(kProcs)) << "it is there already";
    EXPECT_EQ(Selected(), "m.p3");
}

TEST_F(Canvas, TheMapShowsADiagramThatIsLargerThanTheViewAndMovesTheView) {
    Put({"m.go", "m.stay"});
    settings.GraphMap = 1;
    canvas.ShowExtras();
    auto* const map = canvas.findChild<QWidget*>(QStringLiteral("overviewMap"));
    EXPECT_FALSE(map->isVisible()) << "all of it is in view";
    canvas.Change({}, [](XGraph& graph) { graph.MoveTo(2, {90000, 70000}); });
    ASSERT_TRUE(map->isVisible());
    EXPECT_FALSE(canvas.viewport()->rect().contains(PointOf("m.stay")));
    QTest::mousePress(map, Qt::LeftButton, {}, map->rect().bottomRight() - QPoint(6, 6));
    EXPECT_TRUE(canvas.viewport()->rect().contains(PointOf("m.stay")));
    QTest::mouseMove(map, QPoint(6, 6));
    QMouseEvent move(QEvent::MouseMove, QPointF(6, 6), map->mapToGlobal(QPointF(6, 6)), Qt::NoButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(map, &move);
    EXPECT_TRUE(canvas.viewport()->rect().contains(PointOf("m.go"))) << "dragged back";
    canvas.Fit();
    EXPECT_FALSE(map->isVisible());
}

TEST_F(Canvas, ADiagramOpenedWhileTheCanvasIsHiddenIsInViewOnceItHasItsSize) {
    Put({"m.go", "m.stay"});
    canvas.hide();
    canvas.resize(100, 30);
    canvas.Change({}, [](XGraph& graph) { graph.MoveTo(2, {50000, 40000}); });
    canvas.Fit();
    canvas.show();
    canvas.resize(700, 500);
    EXPECT_TRUE(canvas.viewport()->rect().contains(PointOf("m.go")));
    EXPECT_TRUE(canvas.viewport()->rect().contains(PointOf("m.stay")));
    EXPECT_GT(PointOf("m.stay").x() - PointOf("m.go").x(), 300) << "all of the room is used";
    canvas.ZoomReset();
    const QRect view = canvas.viewport()->rect();
    EXPECT_TRUE(view.contains(PointOf("m.go")) || view.contains(PointOf("m.stay"))) << "not the empty middle";
}

TEST_F(Canvas, ADiagramAtTheEdgeOfTheCanvasFitsIntoTheMiddleAndStays) {
    Put({"m.go", "m.stay"});
    canvas.Change({}, [](XGraph& graph) {
        graph.MoveTo(1, {0, 0});
        graph.MoveTo(2, {0, 90000});
    });
    canvas.Fit();
    const QPoint go = PointOf("m.go");
    const QPoint middle = (go + PointOf("m.stay")) / 2;
    EXPECT_NEAR(middle.x(), canvas.width() / 2, 10);
    for (int nr = 0; nr < 20; ++nr)
        canvas.Refresh();
    EXPECT_EQ(PointOf("m.go"), go);
}

TEST_F(Canvas, ZoomingKeepsTheMiddleOrWhatIsBelowTheMouse) {
    Put({"m.go", "m.stay"});
    const auto isNear = [&](QPoint one, QPoint other, int pixels) { return (one - other).manhattanLength() <= pixels; };
    const QPointF middle = canvas.mapToScene(canvas.viewport()->rect().center());
    for (int nr = 0; nr < 12; ++nr)
        canvas.ZoomOut();
    EXPECT_TRUE(isNear(canvas.mapFromScene(middle), canvas.viewport()->rect().center(), 40)) << "beyond the canvas";
    canvas.ZoomReset();
    const QPoint stay = PointOf("m.stay");
    QWheelEvent wheel(stay, canvas.viewport()->mapToGlobal(stay), {}, {0, -600}, Qt::NoButton, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(canvas.viewport(), &wheel);
    EXPECT_TRUE(isNear(PointOf("m.stay"), stay, 4));
    EXPECT_LT(stay.x() - PointOf("m.go").x(), 150) << "smaller";
}

TEST_F(Canvas, DraggingScrollsWhileTheMouseRestsAtTheEdge) {
    Put({"m.go"});
    const double left = At("m.go").Left;
    const int before = canvas.horizontalScrollBar()->value();
    const QPoint edge(canvas.viewport()->width() - 2, 100);
    QTest::mousePress(canvas.viewport(), Qt::LeftButton, {}, PointOf("m.go"));
    QTest::mouseMove(canvas.viewport(), edge);
    QTRY_VERIFY(canvas.horizontalScrollBar()->value() > before + 50);
    QTest::mouseRelease(canvas.viewport(), Qt::LeftButton, {}, edge);
    EXPECT_GT(At("m.go").Left, left + (edge.x() - 100 + 50) * kTwipsPerPixel);
}

TEST_F(Canvas, FramesOfModulesAreBehindTheirSymbols) {
    Put({"m.go"});
    settings.GraphLegend = 0;
    const QPoint beside = canvas.mapFromScene(At("m.go").Left, At("m.go").Top) - QPoint(4, 4);
    canvas.ShowExtras();
    const QColor without = canvas.viewport()->grab().toImage().pixelColor(beside);
    settings.GraphFrames = 1;
    canvas.ShowExtras();
    EXPECT_NE(canvas.viewport()->grab().toImage().pixelColor(beside), without);
}

TEST_F(Canvas, TheContextMenuWorksOnTheSymbolBelowItAndEndsWithTheActions) {
    Put({"m.go", "m.stay"});
    canvas.addAction(QStringLiteral("Command"));
    Click(PointOf("m.go"));
    const auto lastOfMenu = [&](QPoint at) {
        QTest::mouseClick(canvas.viewport(), Qt::RightButton, {}, at);
        auto* const menu = canvas.findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
        const QString text = menu ? menu->actions().back()->text() : QString();
        delete menu;
        return text;
    };
    EXPECT_EQ(lastOfMenu(PointOf("m.stay")), QStringLiteral("Command"));
    EXPECT_EQ(Selected(), "m.stay");
    EXPECT_EQ(lastOfMenu({400, 400}), QStringLiteral("Command"));
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(canvas.viewport(), &key);
    auto* const menu = canvas.findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions().front()->text(), TextNr(Text::GraphGoToCode));
    EXPECT_GT(menu->actions().size(), 3) << "that of the active symbol";
}

TEST_F(Canvas, ZoomLeavesPlacesAndDragsByWhatIsSeen) {
    Put({"m.go", "m.stay"});
    const GraphRect before = At("m.go").Frame();
    canvas.ZoomOut();
    canvas.ZoomOut();
    EXPECT_EQ(At("m.go").Frame(), before);
    const QPoint from = PointOf("m.go");
    Drag(from, from + QPoint(30, 0));
    EXPECT_LE((PointOf("m.go") - from - QPoint(30, 0)).manhattanLength(), 1);
    canvas.Fit();
    EXPECT_TRUE(canvas.viewport()->rect().contains(PointOf("m.stay")));
}

TEST_F(Canvas, TheListNamesSymbolsAndConnectors) {
    Put({"m.go", "m.stay", "m.turn"});
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&canvas);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->role(), QAccessible::List);
    QStringList names;
    for (int nr = 0; nr < list->childCount(); ++nr)
        names.append(list->child(nr)->text(QAccessible::Name));
    ASSERT_EQ(names.size(), 6);
    EXPECT_EQ(names.mid(0, 3),
              QStringList({QStringLiteral("M.Go"), QStringLiteral("M.Stay"), QStringLiteral("M.Turn")}));
    EXPECT_TRUE(names[3].startsWith(QStringLiteral("M.Go \u2192 M.Stay")));
    EXPECT_EQ(list->indexOfChild(list->child(2)), 2);
    QAccessibleInterface* const last = list->child(5);
    canvas.SelectAll();
    canvas.DeleteSelected();
    EXPECT_EQ(list->childCount(), 0);
    EXPECT_FALSE(last->isValid());
    EXPECT_TRUE(last->text(QAccessible::Name).isEmpty());
}

TEST_F(Canvas, AConnectorListsItsLines) {
    Put({"m.go", "m.turn"});
    const QSignalSpy place(&canvas, &GraphCanvas::PlaceChosen);
    Click((PointOf("m.go") + PointOf("m.turn")) / 2);
    auto* const menu = canvas.findChild<QMenu*>();
    ASSERT_TRUE(menu);
    menu->actions().back()->trigger();
    ASSERT_EQ(place.size(), 1);
    EXPECT_EQ(place.front()[0].value<std::string>(), "m");
    EXPECT_EQ(place.front()[1].toInt(), 3);
}

TEST_F(Canvas, WithoutItsProjectNothingIsLeft) {
    Put({"m.go", "m.stay"});
    canvas.SetFileName(QStringLiteral("/x.ovg"));
    canvas.SetProject(nullptr);
    EXPECT_EQ(canvas.ListedCount(), 0);
    EXPECT_TRUE(canvas.FileName().isEmpty());
    EXPECT_FALSE(canvas.Undo().canUndo());
    Press(Qt::Key_Tab);
    Click({100, 100});
    EXPECT_FALSE(canvas.grab().isNull());
}

TEST_F(Canvas, CtrlCCopiesThePicture) {
    QGuiApplication::clipboard()->clear();
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull()) << "there is nothing to copy";
    Put({"m.go", "m.stay"});
    Press(Qt::Key_C, Qt::ControlModifier);
    const double width = canvas.Graph().SymbolBounds().width / 15 + 4;
    EXPECT_NEAR(QGuiApplication::clipboard()->image().width(), width * canvas.devicePixelRatioF(), 2);
}

// Counts how often a widget gets another size.
class Resizes final : public QObject {
public:
    int count = 0;
    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::Resize ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

TEST_F(Canvas, ScrollBarsComeToRestAtEveryZoom) {
    Put({"m.go", "m.stay"});
    Resizes resizes;
    canvas.viewport()->installEventFilter(&resizes);
    for (int width = 700; width < 760; ++width) {
        canvas.resize(width, 500);
        for (int step = 0; step < 14; ++step) {
            canvas.ZoomOut();
            resizes.count = 0;
            QApplication::processEvents(QEventLoop::AllEvents, 5);
            EXPECT_LT(resizes.count, 10) << width << " pixels, step " << step;
        }
        canvas.ZoomReset();
    }
}

}  // namespace

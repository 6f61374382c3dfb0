// How fast the diagram is painted: canvas_benchmark PROJECT.vbp [IMAGE.png]. The busiest procedures of the project
// are in rows; the first image is of all of it. Runs on any platform of Qt.
#include <QApplication>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

#include "calls/driver.h"
#include "canvas/graph_canvas.h"
#include "canvas/graph_picture.h"
#include "findings/dead_objects.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "project/project_file.h"
#include "project/start.h"
#include "shell/settings.h"
#include "widgets/window_style.h"
#include "xgraph/connectors.h"
#include "xgraph/graph_export.h"
#include "xgraph/pairs.h"

namespace {

constexpr QSize kView(1280, 800);

// The procedures with most edges come first, so that many connectors join few symbols.
std::vector<clsProzedur*> BusiestProcedures(const clsProjekt& projekt) {
    std::vector<std::pair<int, clsProzedur*>> busy;
    for (const clsModul* modul : projekt.AllModules())
        for (clsProzedur* prozedur : modul->MyProcs)
            busy.emplace_back(prozedur->CallsAll().Count() + prozedur->CalledByAll().Count(), prozedur);
    std::stable_sort(busy.begin(), busy.end(),
                     [](const auto& one, const auto& other) { return one.first > other.first; });
    std::vector<clsProzedur*> procedures;
    for (const auto& [edges, prozedur] : busy)
        procedures.push_back(prozedur);
    return procedures;
}

void Report(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    std::printf("  %-46s median %7.2f ms  worst %7.2f ms\n", what, times[times.size() / 2], times.back());
}

double Milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

std::vector<double> Times(int count, const std::function<void(int)>& work) {
    std::vector<double> times;
    times.reserve(static_cast<std::size_t>(count));
    for (int nr = 0; nr < count; ++nr)
        times.push_back(Milliseconds([&] { work(nr); }));
    return times;
}

void Redraw(GraphCanvas& canvas, const char* what) {
    QImage image(kView, QImage::Format_ARGB32_Premultiplied);
    Report(what, Times(21, [&](int) {
               canvas.resetCachedContent();
               canvas.viewport()->render(&image);
           }));
}

void Measure(clsProjekt& projekt, std::size_t symbols, const QString& picture) {
    const Settings settings;
    GraphCanvas canvas(settings);
    canvas.setFrameShape(QFrame::NoFrame);
    canvas.resize(kView);
    canvas.SetProject(&projekt);
    canvas.show();
    QApplication::processEvents();
    const std::vector<clsProzedur*> procedures = BusiestProcedures(projekt);
    const std::size_t count = std::min(symbols, procedures.size());
    double filled = 0;
    for (std::size_t first = 0; first + count <= procedures.size(); first += 20) {
        filled = Milliseconds([&] {
            canvas.Change({}, [&](XGraph& graph) {
                graph.Clear();
                for (std::size_t nr = 0; nr < count; ++nr)
                    graph.GraphObjCreate(procedures[first + nr], static_cast<double>(nr % 25) * 2200,
                                         static_cast<double>(nr / 25) * 1300, false);
                graph.SetActive(graph.GraphObjects().front()->Index);
            });
        });
        if (GraphVerbindungen(canvas.Graph()).size() <= 10 * count)
            break;
    }
    const std::size_t connectors = GraphVerbindungen(canvas.Graph()).size();
    std::printf("%zu symbols, %zu connectors, %zu painted\n", canvas.Graph().GraphObjects().size(), connectors,
                GraphPairs(GraphVerbindungen(canvas.Graph())).size());
    std::printf("  %-46s %14.2f ms\n", "adding them", filled);
    Report("discovery", Times(11, [&](int) { static_cast<void>(GraphVerbindungen(canvas.Graph())); }));
    canvas.Fit();
    Redraw(canvas, "full redraw, the whole diagram in view");
    if (!picture.isEmpty())
        canvas.grab().save(picture);
    canvas.ZoomReset();
    canvas.centerOn(27000, 13000);
    Redraw(canvas, "full redraw at normal size");
    for (const auto& [format, what] : {std::pair{PictureFormat::Svg, "the whole diagram as SVG"},
                                       {PictureFormat::Pdf, "as PDF"},
                                       {PictureFormat::Png, "as PNG"}})
        Report(what, Times(3, [&](int) {
                   static_cast<void>(PictureBytes(GraphPicture(canvas.Graph(), settings), format, 1));
               }));
    Report("as JSON", Times(3, [&](int) { static_cast<void>(GraphTextAs(GraphFormat::Json, canvas.Graph())); }));

    canvas.Fit();
    canvas.Change({}, [](XGraph& graph) {
        for (std::size_t nr = 0; nr < std::min<std::size_t>(50, graph.GraphObjects().size()); ++nr)
            graph.Select(graph.GraphObjects()[nr]->Index, true);
    });
    const GraphPoint grip = canvas.Graph().GraphObjects().front()->Center();
    const QPoint start = canvas.mapFromScene(grip.x, grip.y);
    QTest::mousePress(canvas.viewport(), Qt::LeftButton, {}, start);
    Report("one step of dragging 50 symbols", Times(60, [&](int nr) {
               QTest::mouseMove(canvas.viewport(), start + QPoint(nr * 5, nr * 3));
               QApplication::processEvents();
               canvas.viewport()->repaint();
           }));
    const double dropped = Milliseconds([&] {
        QTest::mouseRelease(canvas.viewport(), Qt::LeftButton, {}, start + QPoint(300, 180));
        QApplication::processEvents();
    });
    std::printf("  %-46s %14.2f ms\n", "letting them go", dropped);
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setStyle(new WindowStyle);
    if (argc < 2) {
        std::puts("canvas_benchmark PROJECT.vbp [IMAGE.png]");
        return 2;
    }
    DiskFiles files;
    clsProjekt& projekt = NewProject(files, argv[1]);
    Projekt_Laden(projekt);
    Who_Calls_Who(projekt);
    Tote_Untote_Kennzeichnen(projekt);
    for (const std::size_t symbols : {std::size_t{500}, std::size_t{2000}, std::size_t{5000}})
        Measure(projekt, symbols, argc > 2 && symbols == 500 ? QString::fromLocal8Bit(argv[2]) : QString());
    CloseProject();
    return 0;
}

// Response times of the window with a real project: window_benchmark PROJECT.vbp. Each step is timed up to its last
// repaint. Runs on any platform of Qt, best on the one with a screen. Files of modules get other dates.
#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <random>

#include "display/baum_walk.h"
#include "model/clsProjekt.h"
#include "platform/settings_file.h"
#include "project/start.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "shell/timing.h"
#include "views/baum_view.h"
#include "views/commands.h"
#include "views/frm_main.h"
#include "views/frm_progress.h"
#include "widgets/window_style.h"

namespace {

double Milliseconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void Settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

void Report(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    std::printf("%-58s median %7.2f ms  worst %7.2f ms  (%zu)\n", what, times[times.size() / 2], times.back(),
                times.size());
}

// Selects each of the nodes and waits until everything is painted.
void Click(frmMain& window, const char* what, const std::vector<std::string>& keys) {
    std::vector<double> times;
    for (const std::string& key : keys) {
        QElapsedTimer timer;
        timer.start();
        window.ActivateKey(key);
        Settle();
        times.push_back(Milliseconds(timer));
    }
    Report(what, times);
}

void Expand(frmMain& window, const char* what, const std::vector<NodeId>& nodes) {
    Baum& tree = window.TheWorkspace().Tree();
    std::vector<double> expand;
    for (const NodeId& id : nodes) {
        BaumNode& node = *tree.Find(id);
        tree.EnsureVisible(node);
        tree.SetExpanded(node, false);
        Settle();
        QElapsedTimer timer;
        timer.start();
        tree.SetExpanded(node, true);
        Settle();
        expand.push_back(Milliseconds(timer));
    }
    if (!expand.empty())
        Report(what, expand);
}

// Changes the dates of the files of the first modules and reads them again.
void Refresh(frmMain& window, const char* what, std::size_t modules) {
    namespace fs = std::filesystem;
    constexpr int kRounds = 11;
    std::vector<fs::path> files;
    for (const auto& modul : gProjekt->OwnedModules()) {
        std::string path = modul->FullPath;
        std::replace(path.begin(), path.end(), '\\', '/');
        if (files.size() < modules && fs::exists(path))
            files.emplace_back(path);
    }
    if (files.size() < modules)
        return;
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round) {
        for (const fs::path& path : files)
            fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::minutes(kRounds - round));
        QElapsedTimer timer;
        timer.start();
        window.TheCommands()[Command::Refresh].trigger();
        Settle();
        times.push_back(Milliseconds(timer));
    }
    Report(what, times);
}

}  // namespace

int main(int argc, char** argv) {
    QElapsedTimer sinceStart;
    sinceStart.start();
    QApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "window_benchmark PROJECT.vbp\n");
        return 2;
    }
    QApplication::setStyle(new WindowStyle);
    DiskFiles files;
    SettingsFile file(files, "/nowhere/Ostrivane.ini");  // the defaults, and nothing is stored
    const std::string programDirectory = GetAppPathWithSlash();
    frmMain window(files, file, StartProgram(files, file, nullptr, programDirectory), programDirectory);
    window.resize(1400, 900);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        return 1;
    Settle();
    std::printf("%-58s %.0f ms\n", "start to the empty window", Milliseconds(sinceStart));

    QElapsedTimer timer;
    timer.start();
    window.OpenProject(argv[1]);
    Settle();
    const double whole = Milliseconds(timer);
    if (!gProjekt)
        return 1;
    std::printf("%-58s %.0f ms\n", "opening to the painted tree", whole);

    std::vector<std::string> objects, modules;
    std::vector<NodeId> groups, libraries;
    ForEachNode(window.TheWorkspace().Tree(), [&](const BaumNode& node) {
        if (node.ChildNodes().size() >= 500 && node.Kind() == NodeKind::Group)
            groups.push_back(node.Id());
        if (node.Kind() == NodeKind::Object)
            objects.push_back(node.Key());
        if (node.Parent() && (node.Parent()->Key() == "reference[]" || node.Parent()->Key() == "component[]"))
            libraries.push_back(node.Id());
    });
    for (const clsModul* modul : gProjekt->AllModules())
        modules.push_back(modul->CodePath());
    std::printf("%d nodes\n", window.TheWorkspace().Tree().Count());
    std::shuffle(objects.begin(), objects.end(), std::mt19937(1));
    objects.resize(std::min<std::size_t>(objects.size(), 200));
    Click(window, "click on a random node, structure only", objects);

    auto* answer = new QTimer(&window);
    QObject::connect(answer, &QTimer::timeout, answer, [answer] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            answer->deleteLater();
            box->button(QMessageBox::Yes)->click();
        }
    });
    answer->start(1);
    timer.restart();
    window.Projekt_Analyse();
    Settle();
    std::printf("%-58s %.0f ms, %zu edges\n", "reading the calls, marks and panes included", Milliseconds(timer),
                gProjekt->calls.Count());
    std::shuffle(objects.begin(), objects.end(), std::mt19937(2));
    Click(window, "click on a random node, calls read", objects);
    window.Split_For_Calls();
    Settle();
    std::shuffle(objects.begin(), objects.end(), std::mt19937(3));
    Click(window, "click on a random node, three trees shown", objects);
    Click(window, "click on every module, three trees shown", modules);

    window.TheWorkspace().SetCheckBoxes(true);
    timer.restart();
    window.TheWorkspace().CheckAll(true);
    Settle();
    std::printf("%-58s %.0f ms, %zu objects\n", "checking all boxes", Milliseconds(timer),
                window.TheWorkspace().CheckedCount());
    window.TheWorkspace().CheckAll(false);
    Expand(window, "expanding a group of 500 and more", groups);
    Expand(window, "expanding a library", libraries);
    std::vector<double> typed;
    for (const char* letters : {"f", "fr", "z", "zz", "qqq"}) {
        timer.restart();
        window.BaumProjekt().keyboardSearch(QString::fromLatin1(letters));
        Settle();
        typed.push_back(Milliseconds(timer));
    }
    Report("type-ahead in the tree", typed);
    Refresh(window, "reading one changed module again", 1);
    Refresh(window, "reading ten changed modules again", 10);
    return 0;
}

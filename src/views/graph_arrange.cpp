#include "views/graph_arrange.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>

#include "canvas/graph_canvas.h"
#include "shell/clsText.h"
#include "shell/operations.h"
#include "views/questions.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kTurn = 20;          // milliseconds between two looks at the window
constexpr int kPatience = 3000;    // milliseconds, for each try
constexpr int kFewConnectors = 1;  // for each symbol, if more take too long

QString Program() {
    return QStandardPaths::findExecutable(QString::fromLatin1(kLayoutProgram));
}

// What the program writes; empty if it fails, is cancelled, or takes longer than that many milliseconds.
QByteArray OutputFor(const std::string& input, qint64 most) {
    QProcess dot;
    QElapsedTimer elapsed;
    elapsed.start();
    dot.start(Program(), {QString::fromLatin1(kLayoutFormat)});
    dot.write(input.data(), static_cast<qint64>(input.size()));
    dot.closeWriteChannel();
    while (!dot.waitForFinished(kTurn) && dot.state() != QProcess::NotRunning) {
        DoEvents();
        if (gAbort || elapsed.elapsed() > most)
            dot.kill();
    }
    // A wait that was too short is an error of the process, too.
    return dot.exitStatus() == QProcess::NormalExit && dot.error() != QProcess::FailedToStart
               ? dot.readAllStandardOutput()
               : QByteArray();
}

}  // namespace

bool GraphArrange::IsThere() {
    return !Program().isEmpty();
}

// Diagrams in which everybody calls everybody are tried once more with few of their connectors.
void GraphArrange::Arrange(const QString& name, LayoutOptions options) {
    const std::vector<const ctlGraphObj*> symbols = SymbolsToArrange(canvas_.Graph());
    std::optional<std::vector<GraphPoint>> centres;
    const bool isWhole = ports_.run("Arrange", [&] {
        gProgress().Label(gText.TextNr(Text::Arranging));
        for (const int connectors : {options.connectorsPerSymbol, kFewConnectors}) {
            options.connectorsPerSymbol = connectors;
            const qint64 most = connectors == kFewConnectors ? 100 * kPatience : kPatience;
            const QByteArray output = OutputFor(LayoutInput(canvas_.Graph(), symbols, options), most);
            if (gAbort)
                return;
            centres =
                ReadLayout(std::string_view(output.data(), static_cast<std::size_t>(output.size())), symbols.size());
            if (centres)
                return;
        }
    });
    if (!isWhole)
        return ports_.message(TextNr(Text::ArrangeCancelled));
    if (!centres)
        return ShowFailure(window_, TextNr(Text::ArrangeFailed));
    canvas_.Change(name, [&](XGraph& graph) { ArrangeSymbols(graph, symbols, *centres); });
    // The places of a whole diagram are all new to the user.
    if (symbols.size() == canvas_.Graph().GraphObjects().size())
        canvas_.Fit();
    else
        canvas_.FindSymbols();
    ports_.message(TextNr(Text::SymbolsArranged, NumberText(static_cast<qlonglong>(symbols.size()))));
}

#include "views/graph_chains.h"

#include <QMessageBox>
#include <QPushButton>
#include <span>

#include "canvas/graph_canvas.h"
#include "model/clsProzedur.h"
#include "shell/clsText.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "views/dialogs.h"
#include "widgets/qt_text.h"
#include "xgraph/call_path.h"

namespace {

clsProzedur* ProzedurOf(const ctlGraphObj& symbol) {
    return symbol.object->Class() == ObjectClass::Prozedur ? static_cast<clsProzedur*>(symbol.object) : nullptr;
}

GraphChain FirstLevelOf(GraphChain chain) {
    return chain == GraphChain::CallsAll      ? GraphChain::Calls
           : chain == GraphChain::CalledByAll ? GraphChain::CalledBy
                                              : chain;
}

QString CaptionOf(const clsProzedur& prozedur) {
    return ToQString(prozedur.myNameOrg());
}

}  // namespace

std::vector<clsProzedur*> GraphChains::Selected() const {
    std::vector<clsProzedur*> procedures;
    for (const ctlGraphObj* symbol : canvas_.Graph().GraphSelected())
        if (clsProzedur* const prozedur = ProzedurOf(*symbol))
            procedures.push_back(prozedur);
    const ctlGraphObj* const active = canvas_.Graph().Active();
    if (procedures.empty() && active)
        if (clsProzedur* const prozedur = ProzedurOf(*active))
            procedures.push_back(prozedur);
    return procedures;
}

GraphChains::Answer GraphChains::Ask(GraphChain chain, ChainObjectType type, int count) const {
    const bool areProcedures = type == ChainObjectType::Procedure || FirstLevelOf(chain) == GraphChain::CalledBy;
    QMessageBox box(QMessageBox::Question, ToQString(kProgramTitle),
                    TextNr(areProcedures ? Text::ManyProcedures : Text::ManySymbols, NumberText(count)),
                    QMessageBox::NoButton, DialogParent(window_));
    QPushButton* const all = box.addButton(TextNr(Text::ShowAllSymbols), QMessageBox::AcceptRole);
    QPushButton* const first =
        IsClosure(chain) ? box.addButton(TextNr(Text::FirstLevelOnly), QMessageBox::AcceptRole) : nullptr;
    QPushButton* const cancel = box.addButton(TextNr(Text::Cancel), QMessageBox::RejectRole);
    box.setDefaultButton(first ? first : cancel);
    box.setEscapeButton(cancel);
    AssignMnemonics(box);
    box.exec();
    return box.clickedButton() == all              ? Answer::All
           : first && box.clickedButton() == first ? Answer::FirstLevel
                                                   : Answer::Cancel;
}

void GraphChains::Add(const QString& name, GraphChain chain, ChainObjectType type,
                      const std::vector<clsProzedur*>& starts) {
    const ChainOptions options{.type = type};
    const std::string action(ActionOf(chain));
    const auto label = [] { gProgress().Label(gText.TextNr(Text::ReadCalls) + "..."); };
    int count = 0;
    const bool isCounted = ports_.run(action, [&] {
        label();
        count = CountGraphChain(canvas_.Graph(), starts, chain, options);
    });
    if (!isCounted)
        return ports_.message(TextNr(Text::ChainCancelled, NumberText(0)));
    if (count > mostUnasked) {
        const Answer answer = Ask(chain, type, count);
        if (answer == Answer::Cancel)
            return;
        if (answer == Answer::FirstLevel)
            chain = FirstLevelOf(chain);
    }
    ChainOutcome outcome;
    canvas_.Change(name, [&](XGraph& graph) {
        std::vector<const ctlGraphObj*> symbols;
        for (clsProzedur* prozedur : starts) {
            if (!graph.WithPath(prozedur->CodePath())) {
                const GraphPoint place = canvas_.FreePlace(*prozedur);
                graph.Drop(prozedur, place);
                ++outcome.created;
            }
            symbols.push_back(graph.WithPath(prozedur->CodePath()));
        }
        ports_.run(action, [&] {
            label();
            const ChainOutcome run = RunGraphChain(graph, symbols, chain, options);
            outcome = {outcome.created + run.created, run.isWhole};
        });
    });
    canvas_.FindSymbols();
    ports_.message(About(outcome));
}

QString GraphChains::About(const ChainOutcome& outcome) const {
    return !outcome.isWhole       ? TextNr(Text::ChainCancelled, NumberText(outcome.created))
           : outcome.created == 0 ? TextNr(Text::NothingToAdd)
                                  : TextNr(Text::SymbolsAdded, NumberText(outcome.created));
}

void GraphChains::AddPath(const QString& name) {
    const std::vector<clsProzedur*> ends = Selected();
    if (ends.size() != 2)
        return;
    CallPath path = ShortestCallPath(*ends[0], *ends[1]);
    const bool isBack = !path.Exists();
    if (isBack)
        path = ShortestCallPath(*ends[1], *ends[0]);
    if (!path.Exists())
        return ports_.message(TextNr(Text::NoCallPath, CaptionOf(*ends[0]), CaptionOf(*ends[1])));
    canvas_.Change(name, [&](XGraph& graph) { ShowCallPath(graph, path); });
    const QString from = CaptionOf(*path.procedures.front());
    const QString to = CaptionOf(*path.procedures.back());
    QString text =
        TextNr(path.isCertain ? Text::CallPathShown : Text::CallPathPossible, from, to, NumberText(path.Calls()));
    if (isBack)
        text = TextNr(Text::CallPathBack, from, to) + QLatin1Char(' ') + text;
    ports_.message(text);
}

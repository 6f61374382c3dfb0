// The chart follows the check boxes and the current object; a click into it makes a module the current object.
#include <QMenu>

#include "charts/chart_board.h"
#include "model/clsModul.h"
#include "project/start.h"
#include "views/chart_content.h"
#include "views/commands.h"
#include "views/dialogs.h"
#include "views/frm_main.h"
#include "views/questions.h"
#include "widgets/qt_text.h"

void frmMain::WireChart() {
    const ChartBoard* board = &chart_->Board();
    connect(board, &ChartBoard::TypeChosen, this, &frmMain::FillChart);
    connect(board, &ChartBoard::ModulePicked, this, [this](const std::string& key) { ActivateKey(key); });
    // What is missing: the calls, or modules that are checked.
    connect(board, &ChartBoard::HintClicked, this,
            [this] { (*commands_)[workspace_.CallsRead() ? Command::CheckBoxAll : Command::Calls].trigger(); });
    connect(board, &ChartBoard::MenuFilled, this, [](const QMenu& menu) { Commands::GiveLetters(menu.actions()); });
    connect(board, &ChartBoard::NotWritten, this,
            [this](const QString& path) { ShowFailure(this, TextNr(Text::FileNotWritten, path)); });
}

void frmMain::ShowChart() {
    workspace_.ShowOverview(false);
    settings_.Content = ContentMode::Chart;
    ShowContent();
    Activate_Commands();
}

// Nothing while another pane is shown: the numbers of all modules take a moment.
void frmMain::FillChart() {
    if (!gProjekt || workspace_.ContentShown() != ContentMode::Chart)
        return;
    ChartBoard& board = chart_->Board();
    const Workspace::Chart chart = workspace_.ChartOf(board.Type());
    if (chart.hint != Text::None)
        return board.ShowHint(chart.hint, chart.button);
    board.Show(chart.table);
    board.SaveIn(FolderFor({}));
    if (const clsModul* modul = workspace_.Current().CurModule)
        board.Mark(modul->CodePath());
}

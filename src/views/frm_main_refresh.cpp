// Reads changed files again and comes back to what was shown.
#include <QApplication>

#include "charts/chart_board.h"
#include "model/clsProjekt.h"
#include "project/start.h"
#include "views/chart_content.h"
#include "views/code_view.h"
#include "views/deleted_list.h"
#include "views/dialogs.h"
#include "views/frm_main.h"
#include "views/frm_progress.h"
#include "views/graph_wiring.h"
#include "views/kept_view.h"
#include "views/lower_pane.h"
#include "views/overview_pane.h"
#include "views/questions.h"
#include "views/references_list.h"
#include "views/refresh_notice.h"
#include "views/status_line.h"
#include "widgets/qt_text.h"

void frmMain::BuildRefresh() {
    refresh_ = new RefreshNotice(settings_, this,
                                 {.refresh = [this](bool isAsked) { return RefreshFiles(isAsked); },
                                  .isBusy =
                                      [this] {
                                          return dialogs_.progress->IsRunning() || QApplication::activeModalWidget() ||
                                                 QApplication::activePopupWidget();
                                      },
                                  .showList =
                                      [this] {
                                          ShowOverview(true);
                                          overview_->ShowList(OverviewList::Changes, RowsOf(OverviewList::Changes));
                                          overview_->Focus();
                                      },
                                  .message = [this](const QString& text) { status_->Message(text); }});
}

std::vector<ListedObject> frmMain::RowsOf(OverviewList list) const {
    return list == OverviewList::Changes ? refresh_->Changes().rows : ListOf(*gProjekt, list);
}

Workspace::Refreshed frmMain::RefreshFiles(bool isAsked) {
    using enum Workspace::Refreshed::Outcome;
    dialogs_.missingFiles->Forget();
    const KeptView view(*this, rtbCode(), workspace_.Code().Text(), workspace_.Code().ShownPath());
    const Workspace::ShownPlace place = workspace_.WhereShown();
    const std::optional<OverviewPane::ListPlace> list = overview_->OpenList();
    const int reference = lower_->References().CurrentRow();
    const int chart = chart_->Board().ScrolledBy();
    Workspace::Refreshed refreshed = workspace_.Refresh();
    dialogs_.deleted->Refresh();
    const bool isUntouched =
        refreshed.outcome == NothingChanged || refreshed.outcome == BeingWritten || refreshed.outcome == NoProject;
    if (!isUntouched)
        graph_->ModelChanged();
    const bool stays = isUntouched || refreshed.outcome == NothingRead;
    if (!stays) {
        ShowAgain();
        if (const std::optional<CodePane::Change> change = workspace_.ComeBackTo(place))
            ShowCode(*change);
        ShowTitle();
        ShowContent();
        if (list)
            overview_->ComeBackTo(*list, RowsOf(list->list));
        if (const int count = lower_->References().Count(); reference >= 0 && count > 0)
            lower_->References().SetCurrentRow(std::min(reference, count - 1));
        chart_->Board().ScrollTo(chart);
        Activate_Commands();
        view.ComeBack(rtbCode(), workspace_.Code().Text(), workspace_.Code().ShownPath());
    }
    ShowProjectCounts();
    TellRefreshed(refreshed, isAsked);
    return refreshed;
}

void frmMain::TellRefreshed(const Workspace::Refreshed& refreshed, bool isAsked) {
    const QString files = NumberText(refreshed.files);
    switch (refreshed.outcome) {
        using enum Workspace::Refreshed::Outcome;
        case NothingChanged:
            return status_->Message(TextNr(Text::NoFileChanged));
        case BeingWritten:
            return;
        case NoProject:
            status_->Message(TextNr(Text::ProjectNotRead, ToPath(gProjekt->FullPath)));
            if (isAsked)
                ShowFailure(this, TextNr(Text::ProjectNotRead, ToPath(gProjekt->FullPath)) + QStringLiteral("\n\n") +
                                      TextNr(refreshed.whyNoProject));
            return;
        case NothingRead:
            return status_->Message(TextNr(Text::RefreshReadNothing));
        case Cancelled:
            return status_->Message(TextNr(Text::RefreshCancelled));
        case Done:
            break;
    }
    if (refreshed.unreadable > 0)
        status_->Message(TextNr(Text::RefreshIncomplete, files, NumberText(refreshed.unreadable)));
    else if (refreshed.changes.rows.empty())
        status_->Message(refreshed.files == 1 ? TextNr(Text::OneFileUnchanged) : TextNr(Text::FilesUnchanged, files));
    else
        status_->Message(TextNr(Text::FilesChanged, files));
}

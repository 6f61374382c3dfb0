// Opens and closes projects.
#include <QFileDialog>
#include <QFileInfo>
#include <QStackedWidget>
#include <QTimer>

#include "display/project_view.h"
#include "display/recent_projects.h"
#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/large_pages.h"
#include "project/project_file.h"
#include "project/project_page.h"
#include "project/start.h"
#include "shell/program.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/deleted_list.h"
#include "views/frm_error.h"
#include "views/frm_main.h"
#include "views/frm_progress.h"
#include "views/graph_wiring.h"
#include "views/lower_pane.h"
#include "views/main_panes.h"
#include "views/properties_grid.h"
#include "views/questions.h"
#include "views/refresh_notice.h"
#include "views/search_bar.h"
#include "views/start_page.h"
#include "views/status_line.h"
#include "views/tree_panes.h"
#include "views/why_wiring.h"
#include "widgets/qt_text.h"

void frmMain::Projekt_Oeffnen() {
    QFileDialog dialog(this, TextNr(Text::OpenProject).remove(QChar(0x2026)));
    dialog.setFileMode(QFileDialog::ExistingFile);
    // Both spellings: checkouts of old projects have suffixes in capitals.
    dialog.setNameFilter(TextNr(Text::VbProjects) + QStringLiteral(" (*.vbp *.VBP *.Vbp)"));
    dialog.setDefaultSuffix(QStringLiteral("vbp"));
    if (settings_.OpenSaveDir.size() > 1)
        dialog.setDirectory(ToPath(settings_.OpenSaveDir));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    // A diagram as well, whoever chose it here.
    OpenFile(FromPath(dialog.selectedFiles().front()));
}

void frmMain::OpenProject(const std::string& path) {
    // A drop or a start with a file can arrive while an operation runs.
    if (dialogs_.progress->IsRunning())
        return;
    if (const Text why = WhyNoProject(files_.ReadText(path)); why != Text::None) {
        ShowFailure(this, TextNr(Text::CannotOpen, ToPath(path)) + QStringLiteral("\n\n") + TextNr(why));
        ShowStartPage();  // the file may be among the recent ones
        return;
    }
    if (!MayLeave())
        return;
    const QFileInfo file(ToPath(path));
    const std::string codePage = ChooseCodePage(files_, file_, settings_, path);
    dialogs_.error->ForgetIgnored();
    dialogs_.missingFiles->Forget();
    settings_.OpenSaveDir = FromPath(file.absolutePath());
    Save_OpenDir(file_, settings_);
    const std::optional<ProjectView> view = StoredView(file_, path);
    LeaveProject();
    if (!workspace_.Open(path, codePage)) {
        CloseTheProject();
        status_->Message(TextNr(Text::LoadingCancelled));
        return;
    }
    AddRecentProject(file_, FromPath(file.absoluteFilePath()));
    commands_->SetImage(Command::Calls, "CallsReadNot");
    commands_->SetImage(Command::CallsModule, "CallsReadNot");
    ShowTitle();
    ShowProjectCounts();
    if (view)
        ShowAsLeft(*view);
    pages_->setCurrentWidget(panes_);
    lower_->Properties().Show(Anzeigen_Eigenschaften(*gProjekt));
    ShowContent();
    BaumProjekt().setFocus();
    const QString calls = settings_.ReadCalls != 0 ? RunCalls() : QString();
    // Now, as its neighbours are among what is shown of it.
    if (view && ActivateKey(view->selected))
        workspace_.ShowOpen(view->open);
    const int modules = gProjekt->CountAllModules();
    const QString read = codePage != settings_.CodePage
                             ? TextNr(Text::ModulesReadIn, NumberText(modules), ToQString(NameOfCodePage(codePage)))
                         : modules == 1 ? TextNr(Text::OneModuleRead)
                                        : TextNr(Text::ModulesRead, NumberText(modules));
    status_->Message(calls.isEmpty() ? read : read + QLatin1Char(' ') + calls);
    Activate_Commands();
    graph_->ProjectOpened();
    refresh_->ProjectChanged();
}

// What can be shown as it was before the calls are read.
void frmMain::ShowAsLeft(const ProjectView& view) {
    if (view.arrangement != settings_.Split)
        Arrange(view.arrangement);
    rtbCode().SetZoom(view.zoom);
    workspace_.ShowOpen(view.open);
}

// Whether what is not saved may go with the project.
bool frmMain::MayLeave() {
    return graph_->MayGo() && MayLeaveDeletions();
}

// Nothing of a project stays on the screen while the next one is read; how it was shown is kept.
void frmMain::LeaveProject() {
    if (gProjekt) {
        ProjectView view = workspace_.View();
        view.zoom = rtbCode().Zoom();
        StoreView(file_, gProjekt->FullPath, view);
    }
    graph_->ProjectGoes();
    project_->Search().Clear();
    workspace_.Close();
    refresh_->ProjectChanged();
    dialogs_.deleted->Refresh();
    why_->ProjectChanged();
    ShowTitle();
    ShowProjectCounts();
    status_->Message({});
}

void frmMain::CloseTheProject() {
    LeaveProject();
    ShowStartPage();
    Activate_Commands();
    // Once the views have let go as well.
    QTimer::singleShot(0, this, &ReturnFreedMemory);
}

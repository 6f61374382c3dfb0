#include "views/why_wiring.h"

#include <QEvent>
#include <QFileDialog>

#include "display/node_objects.h"
#include "display/path_text.h"
#include "display/project_reach.h"
#include "display/workspace.h"
#include "model/clsProjekt.h"
#include "platform/files.h"
#include "project/start.h"
#include "reach/reach_page.h"
#include "shell/words.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/dialogs.h"
#include "views/frm_declare.h"
#include "views/frm_main.h"
#include "views/frm_reach.h"
#include "views/graph_wiring.h"
#include "views/lower_pane.h"
#include "views/questions.h"
#include "views/reach_list.h"
#include "widgets/qt_text.h"

WhyWiring::WhyWiring(frmMain& window, Files& files, LowerPane& lower, GraphWiring& graph, Ports ports)
    : QObject(&window),
      window_(window),
      workspace_(window.TheWorkspace()),
      files_(files),
      lower_(lower),
      list_(lower.Why()),
      graph_(graph),
      ports_(std::move(ports)) {
    const auto source = [this](const std::string& from, const std::string& to) { return AnswerFor(from, to); };
    path_ = new frmReach(true, source, &window);
    impact_ = new frmReach(false, source, &window);
    WireWindow(*path_);
    WireWindow(*impact_);
    connect(&list_, &ReachList::RowChosen, this, &WhyWiring::ChooseRow);
    connect(&list_, &ReachList::CommandAsked, &window_, &frmMain::RunOn);
    list_.installEventFilter(this);
}

void WhyWiring::WireWindow(frmReach& window) {
    const ReachList& list = window.List();
    connect(&list, &ReachList::RowChosen, this, [this](const ReachRow& row, bool stays) {
        if (row.line > 0)
            window_.ActivateLine(row.modulKey, row.line);
        else if (!row.key.empty() && !stays)
            window_.RunOn(Command::GoTo, row.key);
    });
    connect(&window, &frmReach::CommandAsked, &window_, &frmMain::RunOn);
    connect(&window, &frmReach::GraphAsked, &graph_, &GraphWiring::ShowObjects);
    connect(&window, &frmReach::SaveAsked, this, &WhyWiring::Save);
}

void WhyWiring::WireCommands() {
    for (const Command command :
         {Command::ShowWhy, Command::CallPath, Command::Impact, Command::DeclareEntry, Command::LeaveAlone})
        connect(&window_.TheCommands()[command], &QAction::triggered, this,
                [this, command] { Run(command, window_.KeyInFocus()); });
    connect(&window_.TheCommands()[Command::DeclaredByUser], &QAction::triggered, this, &WhyWiring::ShowDeclared);
}

void WhyWiring::Texte() {
    list_.setAccessibleName(TextNr(Text::ShowWhy));
    list_.setAccessibleDescription(TextNr(Text::WhyKeys));
    path_->Texte();
    impact_->Texte();
}

void WhyWiring::Run(Command command, const std::string& key) {
    if (!key.empty())
        window_.ActivateKey(key);
    if (!workspace_.HasReach()) {
        Q_EMIT Message(TextNr(workspace_.WhyNoReason()));
        return;
    }
    const CodeObject& object = *workspace_.Current().CurObject;
    switch (command) {
        case Command::CallPath:
            return path_->Present(NodeKeyOf(object), QString::fromStdString(PathText(object)));
        case Command::Impact:
            return impact_->Present(NodeKeyOf(object), QString::fromStdString(PathText(object)));
        case Command::DeclareEntry:
            return Declare(DeclaredKind::EntryPoint);
        case Command::LeaveAlone:
            return Declare(DeclaredKind::LeaveAlone);
        default:
            ports_.showPage();
            list_.setFocus();
            ports_.showNow();
    }
}

// The page is made while it can be seen.
void WhyWiring::Renew() {
    const CodeObject* const object = workspace_.Current().CurObject;
    const std::string key = object ? NodeKeyOf(*object) : std::string();
    if (std::exchange(object_, key) != key)
        whole_.clear();
    page_ = {};
    list_.Show({});
    stale_ = true;
    if (list_.isVisible())
        Load();
}

void WhyWiring::Load() {
    if (!std::exchange(stale_, false))
        return;
    page_ = workspace_.Why(whole_);
    list_.SetWhyNone(TextNr(workspace_.WhyNoReason()));
    list_.Show(page_.rows);
    if (workspace_.WalksWhy())
        list_.SetCurrentPlace(workspace_.Walk().At());
}

bool WhyWiring::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show)
        Load();
    return QObject::eventFilter(watched, event);
}

void WhyWiring::GenerationEnds() {
    Renew();
    path_->Forget();
    impact_->Forget();
}

void WhyWiring::ProjectChanged() {
    if (!gProjekt) {
        path_->close();
        impact_->close();
    }
    path_->Renew();
    impact_->Renew();
}

bool WhyWiring::HasPlaces() const {
    return list_.isVisible() && !page_.places.empty();
}

// The page is walked through after one of its places was chosen, from its own rows, or if nothing else can be.
bool WhyWiring::Step(int by) {
    if (!workspace_.WalksWhy()) {
        const bool isAsked =
            list_.hasFocus() || (workspace_.Walk().Count() == 0 && window_.rtbCode().PlaceCount() == 0);
        if (!isAsked || !HasPlaces())
            return false;
        workspace_.WalkWhy(page_);
    }
    const ReachRow* const row = list_.CurrentRow();
    const bool hasMoved = row && row->place >= 0 && row->place != workspace_.Walk().At();
    if (hasMoved && by > 0) {
        ports_.showWalk(workspace_.WalkTo(row->place));
        return true;
    }
    ports_.showWalk(hasMoved ? workspace_.StepFrom(row->place, by) : workspace_.StepOn(by));
    return true;
}

void WhyWiring::ShowPlace(int at) {
    list_.SetCurrentPlace(at);
}

void WhyWiring::ChooseRow(const ReachRow& row, bool stays) {
    if (row.kind == ReachRow::Kind::More) {
        const int current = list_.currentIndex().row();
        whole_.insert(static_cast<WhySection>(row.section));
        workspace_.EndWalk();
        stale_ = true;
        Load();
        list_.setCurrentIndex(list_.model()->index(current, 0));
        ports_.showNow();
    } else if (row.place >= 0) {
        if (!workspace_.WalksWhy())
            workspace_.WalkWhy(page_);
        ports_.showWalk(workspace_.WalkTo(row.place));
        if (!stays)
            window_.rtbCode().setFocus();
    } else if (!stays) {
        window_.RunOn(Command::GoTo, row.key);
    }
}

ReachAnswer WhyWiring::AnswerFor(const std::string& from, const std::string& to) const {
    const Reasons* const reasons = workspace_.TheReasons();
    const CodeObject* const start = reasons ? ObjectOfNode(*gProjekt, NodeId(from)) : nullptr;
    const CodeObject* const target = reasons && !to.empty() ? ObjectOfNode(*gProjekt, NodeId(to)) : nullptr;
    if (!start || (!to.empty() && !target))
        return {};
    return target ? PathAnswer(reasons->TheReach(), *start, *target) : ImpactAnswer(reasons->TheReach(), *start);
}

// Of an answer that has rows.
std::string WhyWiring::TableFor(const std::string& from, const std::string& to) const {
    const Reach& reach = workspace_.TheReasons()->TheReach();
    const CodeObject& start = *ObjectOfNode(*gProjekt, NodeId(from));
    return PageTable(to.empty() ? ImpactPage(reach, start)
                                : PathsPage(reach.TheLinks(), start, *ObjectOfNode(*gProjekt, NodeId(to))));
}

void WhyWiring::Save(const ReachAnswer& answer, const std::string& from, const std::string& to) {
    const QString csv = QStringLiteral("CSV (*.csv)");
    QFileDialog dialog(DialogParent(&window_), TextNr(Text::SaveAnswer), FolderFor(saveDirectory_),
                       TextNr(Text::TextFiles) + QStringLiteral(" (*.txt);;") + csv);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("txt"));
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(filter == csv ? QStringLiteral("csv") : QStringLiteral("txt"));
    });
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    saveDirectory_ = dialog.directory().path();
    const QString path = dialog.selectedFiles().front();
    const bool isCsv = path.endsWith(QStringLiteral(".csv"), Qt::CaseInsensitive);
    const std::string text = isCsv ? TableFor(from, to) : answer.title + "\n" + AsText(answer.rows);
    if (files_.WriteWhole(FromPath(path), text) != FileError::None)
        ShowFailure(&window_, TextNr(Text::FileNotWritten, path));
}

void WhyWiring::Declare(DeclaredKind kind) {
    const CodeObject& object = Answering(*workspace_.Current().CurObject);
    ProjectReach& answers = workspace_.TheReach();
    const std::string path(object.CodePathOrg());
    const QString name = ToQString(path);
    const Declaration* const known = answers.Stored(*gProjekt).declared.Of(path);
    const bool isDeclared = known && known->kind == kind;
    if (kind == DeclaredKind::LeaveAlone && !isDeclared &&
        workspace_.TheReasons()->GradeOf(object).grade == Grade::Living) {
        ShowMessage(&window_, TextNr(Text::NothingToLeave, name));
        return;
    }
    frmDeclare dialog({.kind = kind,
                       .name = name,
                       .comment = known ? ToQString(known->comment) : QString(),
                       .isDeclared = isDeclared,
                       .file = ToPath(answers.Stored(*gProjekt).path),
                       .besideProject = answers.IsBesideProject(*gProjekt)},
                      DialogParent(&window_));
    const frmDeclare::Answer answer = dialog.Ask();
    if (answer == frmDeclare::Answer::Cancelled)
        return;
    const bool isRemoved = answer == frmDeclare::Answer::Removed;
    const auto change = [&](Declared& declared) {
        if (isRemoved)
            declared.Remove(path);
        else
            declared.Set({kind, path, FromQString(dialog.Comment())});
    };
    if (Change(change, dialog.BesideProject()))
        Q_EMIT Message(TextNr(isRemoved ? Text::NotDeclared : Text::NowDeclared, name));
}

bool WhyWiring::Change(const std::function<void(Declared&)>& change, bool besideProject) {
    ProjectReach& answers = workspace_.TheReach();
    const FileError error = answers.Change(*gProjekt, change, besideProject);
    Renew();
    ProjectChanged();
    ports_.showNow();
    if (error != FileError::None)
        ShowFailure(&window_, TextNr(Text::FileNotWritten, ToPath(answers.FileFor(*gProjekt, besideProject))));
    return error == FileError::None;
}

void WhyWiring::ShowDeclared() {
    frmDeclared dialog(DialogParent(&window_));
    declared_ = &dialog;
    connect(&dialog, &frmDeclared::GoToAsked, this, [this](const std::string& path) {
        if (const CodeObject* const object = gProjekt->GetObjectFromCodePath(LowerCase(path)))
            window_.RunOn(Command::GoTo, NodeKeyOf(*object));
    });
    connect(&dialog, &frmDeclared::RemoveAsked, this, [this](const std::string& path) {
        Change([&](Declared& declared) { declared.Remove(path); }, workspace_.TheReach().IsBesideProject(*gProjekt));
        FillDeclared();
    });
    FillDeclared();
    dialog.exec();
    declared_ = nullptr;
}

void WhyWiring::FillDeclared() {
    ProjectReach& answers = workspace_.TheReach();
    std::vector<frmDeclared::Row> rows;
    for (const Declaration& declaration : answers.Stored(*gProjekt).declared.All()) {
        const bool exists = gProjekt->GetObjectFromCodePath(LowerCase(declaration.codePath)) != nullptr;
        rows.push_back(
            {.kind = TextNr(declaration.kind == DeclaredKind::EntryPoint ? Text::EntryPoint : Text::LeaveAlone),
             .object = ToQString(declaration.codePath),
             .comment = ToQString(declaration.comment),
             .state = exists ? QString() : TextNr(Text::GoneObject),
             .codePath = declaration.codePath,
             .exists = exists});
    }
    declared_->Show(std::move(rows), ToPath(answers.Stored(*gProjekt).path));
}

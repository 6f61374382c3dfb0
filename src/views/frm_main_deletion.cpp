// Deletes objects from the texts of their modules, brings them back, and has the modules saved.
#include <QMessageBox>
#include <QPushButton>

#include "display/node_objects.h"
#include "model/clsProjekt.h"
#include "project/start.h"
#include "shell/program.h"
#include "shell/words.h"
#include "views/baum_view.h"
#include "views/commands.h"
#include "views/deleted_list.h"
#include "views/dialogs.h"
#include "views/frm_delete.h"
#include "views/frm_main.h"
#include "views/graph_wiring.h"
#include "views/questions.h"
#include "views/status_line.h"
#include "widgets/qt_text.h"

namespace {

constexpr std::size_t kMostLines = 20;  // of a message

QString FileName(const std::string& path) {
    return ToQString(modMain::DirOrFileName(path, 0));
}

QString WithLines(Text heading, const QStringList& lines) {
    QString text = TextNr(heading) + QStringLiteral("\n\n") + lines.mid(0, kMostLines).join(QLatin1Char('\n'));
    return lines.size() > static_cast<qsizetype>(kMostLines) ? text + QStringLiteral("\n\u2026") : text;
}

QStringList FileNames(const std::vector<std::string>& paths) {
    QStringList names;
    for (const std::string& path : paths)
        names.append(FileName(path));
    return names;
}

QStringList Causes(const std::vector<Deletions::Refused>& refused) {
    QStringList lines;
    for (const Deletions::Refused& each : refused)
        lines.append(ToQString(each.codePath) + QStringLiteral(": ") + TextNr(each.why));
    return lines;
}

// The answer to a question about files; `discard` offers to go on without saving.
QMessageBox::StandardButton AskToSave(QWidget* window, const QString& text, bool discard) {
    QMessageBox box(QMessageBox::Question, ToQString(kProgramTitle), text,
                    discard ? QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel
                            : QMessageBox::Save | QMessageBox::Cancel,
                    DialogParent(window));
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    box.button(QMessageBox::Save)->setText(TextNr(Text::Save));
    box.button(QMessageBox::Cancel)->setText(TextNr(Text::Cancel));
    if (QAbstractButton* button = box.button(QMessageBox::Discard))
        button->setText(TextNr(Text::DontSave));
    AssignMnemonics(box);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace

void frmMain::WireDeletions() {
    BaumProjekt().SetDeletes(true);
    connect(&BaumProjekt(), &BaumView::DeleteAsked, this, &frmMain::DeleteObject);
    Wire(Command::DeleteObject, [this](bool) { DeleteNode(); });
    Wire(Command::DeleteDead, [this](bool) { DeleteDead(); });
    Wire(Command::DeletedHere, [this](bool) { dialogs_.deleted->Present(); });
    Wire(Command::SaveModules, [this](bool) {
        const QStringList files = FileNames(workspace_.Deleted().Unsaved());
        if (AskToSave(this, WithLines(Text::AskWriteModules, files), false) == QMessageBox::Save)
            SaveModules();
    });
    DeletedList& list = *dialogs_.deleted;
    list.SetSource(workspace_.Deleted());
    connect(&list, &DeletedList::UndoAsked, this, &frmMain::UndoDeletions);
    connect(&list, &DeletedList::SaveAsked, this, [this] { (*commands_)[Command::SaveModules].trigger(); });
    connect(&list, &DeletedList::PlaceChosen, this, [this](int nr) {
        ShowOverview(false);
        if (const auto shown = workspace_.ShowDeleted(nr))
            Show(*shown);
    });
}

void frmMain::DeleteNode() {
    if (const CodeObject* object = workspace_.Current().CurObject)
        DeleteObject(NodeKeyOf(*object));
}

// Afterwards the whole module is shown, at the place where the object stood.
void frmMain::DeleteObject(const std::string& key) {
    ActivateKey(key);
    const std::vector<DeletionRow> rows = workspace_.RowsToDelete(key);
    if (rows.empty() || !Delete(rows))
        return;
    const std::vector<Deletion>& all = workspace_.Deleted().All();
    if (rows.size() > 1) {
        ActivateKey(key);
        dialogs_.deleted->Present();
    } else if (const auto shown = workspace_.ShowDeleted(all.back().nr)) {
        Show(*shown);
    }
}

void frmMain::DeleteDead() {
    const std::vector<DeletionRow> rows = workspace_.DeadRows();
    if (rows.empty())
        return ShowMessage(this, TextNr(Text::NothingDeadHere));
    const bool hadObject = workspace_.Current().CurObject != nullptr;
    if (!Delete(rows))
        return;
    if (hadObject && !workspace_.Current().CurObject)
        ActivateKey(rows.front().key.substr(0, rows.front().key.find('.')));
    dialogs_.deleted->Present();
}

// True if something was deleted; shows what could not be.
bool frmMain::Delete(const std::vector<DeletionRow>& rows) {
    std::vector<Deletions::Refused> refused;
    for (const DeletionRow& row : rows)
        if (row.whyNot != Text::None)
            refused.push_back({row.path, row.whyNot});
    if (refused.size() < rows.size()) {
        if (!frmDelete(DialogParent(this)).Ask(rows, workspace_.CallsRead()))
            return false;
        const Deletions::Deleted deleted = workspace_.Delete(rows);
        ModulesChanged();
        refused = deleted.refused;
        if (deleted.objects > 0)
            status_->Message(deleted.objects == 1 && rows.size() == 1
                                 ? TextNr(Text::OneObjectDeleted, ToQString(rows.front().path))
                                 : TextNr(Text::ObjectsDeleted, NumberText(deleted.objects)));
    }
    if (!refused.empty())
        ShowFailure(this, WithLines(Text::NotDeleted, Causes(refused)));
    return refused.size() < rows.size();
}

// What is shown belongs to modules that were read again.
void frmMain::ModulesChanged() {
    graph_->ModelChanged();
    ShowAgain();
    ShowContent();
    ShowProjectCounts();
    dialogs_.deleted->Refresh();
    ShowTitle();
    Activate_Commands();
}

void frmMain::UndoDeletions(const std::vector<int>& numbers) {
    const Deletion* const first = numbers.empty() ? nullptr : workspace_.Deleted().Find(numbers.front());
    const QString path = first ? ToQString(first->codePath) : QString();
    const std::string key = first ? LowerCase(first->codePath) : std::string();
    if (!workspace_.UndoDeletions(numbers))
        return graph_->ModelChanged();
    ModulesChanged();
    if (numbers.size() == 1)
        ActivateKey(key);
    status_->Message(TextNr(Text::ObjectIsBack, path) + (numbers.size() > 1 ? QStringLiteral(", \u2026") : QString()));
}

bool frmMain::SaveModules() {
    QStringList failed;
    const std::vector<Deletions::Saved> saved = workspace_.SaveModules();
    for (const Deletions::Saved& file : saved)
        if (!file.Ok())
            failed.append(FileName(file.path) + QStringLiteral(": ") +
                          TextNr(file.fileHasChanged ? Text::ChangedMeanwhile : CauseAndRemedy(file.error)));
    dialogs_.deleted->Refresh();
    ShowTitle();
    Activate_Commands();
    status_->Message(TextNr(Text::ModulesSaved, NumberText(static_cast<qlonglong>(saved.size()) - failed.size())));
    if (!failed.empty())
        ShowFailure(this, WithLines(Text::ModulesNotSaved, failed));
    return failed.empty();
}

bool frmMain::MayReadAgain(const std::vector<std::string>& paths) {
    return AskQuestion(this, WithLines(Text::AskReadAgain, FileNames(paths)));
}

bool frmMain::MayLeaveDeletions() {
    const std::vector<std::string> unsaved = workspace_.Deleted().Unsaved();
    if (unsaved.empty())
        return true;
    const auto answer = AskToSave(this, WithLines(Text::AskSaveModules, FileNames(unsaved)), true);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && SaveModules());
}

#include "views/graph_files.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QUndoStack>

#include "canvas/graph_canvas.h"
#include "display/recent_projects.h"
#include "model/clsProjekt.h"
#include "platform/files.h"
#include "shell/program.h"
#include "views/dialogs.h"
#include "views/questions.h"
#include "widgets/qt_text.h"
#include "xgraph/graph_file.h"

namespace {

QString Filter() {
    return TextNr(Text::GraphFiles) + QStringLiteral(" (*.ovg *.OVG)");
}

}  // namespace

QString ProposedFileName(const GraphCanvas& canvas) {
    const clsProjekt* const projekt = canvas.Graph().Projekt();
    const QString like = canvas.FileName().isEmpty() && projekt ? ToPath(projekt->FullPath) : canvas.FileName();
    return QFileInfo(like).completeBaseName();
}

GraphFiles::GraphFiles(GraphCanvas& canvas, Files& files, SettingsFile& settings, QWidget* window)
    : QObject(window), canvas_(canvas), files_(files), settings_(settings), window_(window) {}

void GraphFiles::GraphOpen() {
    QFileDialog dialog(window_, TextNr(Text::OpenGraph), FolderFor(gGraphDir_), Filter());
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(QStringLiteral("ovg"));
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
        Open(FromPath(dialog.selectedFiles().front()));
}

void GraphFiles::Open(const std::string& path) {
    const QString name = ToPath(path);
    // Changes that are not saved come first: what the other question removes could not be brought back.
    if (canvas_.IsUnsaved()) {
        if (!MayGo())
            return;
    } else if (!canvas_.Graph().GraphObjects().empty() &&
               !AskOkCancel(window_,
                            TextNr(Text::OpeningDeletesGraph) + QLatin1Char('\n') + TextNr(Text::AskOpenGraph))) {
        return;
    }
    gGraphDir_ = QFileInfo(name).absolutePath();
    GraphOpened opened;
    canvas_.Change(TextNr(Text::OpenGraph), [&](XGraph& graph) {
        opened = ::GraphOpen(graph, files_, path);
        if (opened.whyNot == Text::None)
            canvas_.SetFileName(name);
    });
    if (opened.whyNot != Text::None) {
        Q_EMIT Message(TextNr(Text::GraphNotOpened, name));
        return;
    }
    // Symbols that were left out are missing in the file from now on only if it is saved.
    canvas_.Undo().setClean();
    canvas_.Fit();
    AddRecentGraph(settings_, FromPath(QFileInfo(name).absoluteFilePath()));
    Q_EMIT Message(opened.missing == 0 ? TextNr(Text::GraphOpened, name)
                                       : TextNr(Text::GraphOpenedMissing, name, NumberText(opened.missing)));
}

bool GraphFiles::GraphSave() {
    return canvas_.FileName().isEmpty() ? SaveAs() : Save(canvas_.FileName());
}

bool GraphFiles::SaveAs() {
    QFileDialog dialog(window_, TextNr(Text::SaveGraph), FolderFor(gGraphDir_), Filter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("ovg"));
    dialog.setOption(QFileDialog::DontConfirmOverwrite);  // asked below, in the program's own words
    dialog.selectFile(ProposedFileName(canvas_) + QStringLiteral(".ovg"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    const QString path = dialog.selectedFiles().front();
    if (QFileInfo::exists(path) &&
        !AskOkCancel(window_, TextNr(Text::GraphFileExists) + QLatin1Char('\n') + TextNr(Text::AskOverwrite)))
        return false;
    return Save(path);
}

bool GraphFiles::Save(const QString& path) {
    gGraphDir_ = QFileInfo(path).absolutePath();
    if (!::GraphSave(canvas_.Graph(), files_, FromPath(path))) {
        Q_EMIT Message(TextNr(Text::GraphNotSaved, path));
        return false;
    }
    canvas_.SetFileName(path);
    canvas_.Undo().setClean();
    AddRecentGraph(settings_, FromPath(QFileInfo(path).absoluteFilePath()));
    Q_EMIT canvas_.Changed();
    Q_EMIT Message(TextNr(Text::GraphSaved, path));
    return true;
}

bool GraphFiles::MayGo() {
    if (!canvas_.IsUnsaved())
        return true;
    QMessageBox box(QMessageBox::Question, ToQString(kProgramTitle), TextNr(Text::AskSaveGraph, Name()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, DialogParent(window_));
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    box.button(QMessageBox::Save)->setText(TextNr(Text::Save));
    box.button(QMessageBox::Discard)->setText(TextNr(Text::DontSave));
    box.button(QMessageBox::Cancel)->setText(TextNr(Text::Cancel));
    AssignMnemonics(box);
    const int answer = box.exec();
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && GraphSave());
}

QString GraphFiles::Name() const {
    if (!canvas_.FileName().isEmpty())
        return QFileInfo(canvas_.FileName()).fileName();
    return canvas_.Graph().GraphObjects().empty() ? QString() : TextNr(Text::XGraph);
}

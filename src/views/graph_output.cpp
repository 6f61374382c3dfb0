#include "views/graph_output.h"

#include <QDate>
#include <QFileInfo>

#include "canvas/graph_canvas.h"
#include "model/clsProjekt.h"
#include "platform/files.h"
#include "platform/settings_file.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/words.h"
#include "views/dialogs.h"
#include "views/graph_files.h"
#include "views/graph_print.h"
#include "views/questions.h"
#include "widgets/qt_text.h"
#include "xgraph/graph_export.h"

namespace {

constexpr std::string_view kSection = "ALLGEMEIN";
constexpr std::string_view kKey = "GraphExport";

// "ToolHire, 22 November 2026, 34 symbols".
QString CaptionOf(const XGraph& graph) {
    const clsProjekt* const projekt = graph.Projekt();
    const std::string name = !projekt                   ? std::string()
                             : !projekt->MyName.empty() ? projekt->MyName
                                                        : std::string(modMain::DirOrFileName(projekt->FullPath, 0));
    return TextNr(Text::GraphCaption, ToQString(name), DateText(QDate::currentDate()),
                  NumberText(static_cast<qlonglong>(graph.GraphObjects().size())));
}

}  // namespace

GraphOutput::GraphOutput(GraphCanvas& canvas, Files& files, SettingsFile& file, const Settings& settings,
                         const GraphPorts& ports, QWidget* window)
    : canvas_(canvas), files_(files), file_(file), settings_(settings), ports_(ports), window_(window) {}

// As one text: "png 2 legend caption clear".
ExportChoice GraphOutput::LastChoice() const {
    const QStringList words =
        QString::fromStdString(file_.ReadString(kSection, kKey, "bmp", 80)).split(QLatin1Char(' '));
    ExportChoice choice;
    choice.directory = FolderFor(gExportDir_);
    choice.suffix = words.value(0);
    if (const int scale = words.value(1).toInt(); scale > 0)
        choice.scale = scale;
    choice.hasLegend = words.contains(QLatin1String("legend"));
    choice.hasCaption = words.contains(QLatin1String("caption"));
    choice.hasClearGround = words.contains(QLatin1String("clear"));
    return choice;
}

void GraphOutput::Remember(const ExportChoice& choice) {
    gExportDir_ = choice.directory;
    QString text = QStringLiteral("%1 %2").arg(choice.suffix).arg(choice.scale);
    for (const auto& [isChosen, word] :
         {std::pair{choice.hasLegend, " legend"}, {choice.hasCaption, " caption"}, {choice.hasClearGround, " clear"}})
        if (isChosen)
            text += QLatin1String(word);
    file_.WriteString(kSection, kKey, text.toStdString());
    file_.Save();
}

void GraphOutput::GraphExport() {
    GraphExportDialog dialog(LastChoice(), ProposedFileName(canvas_), window_);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.Path();
    if (QFileInfo::exists(path) &&
        !AskOkCancel(window_, TextNr(Text::GraphFileExists) + QLatin1Char('\n') + TextNr(Text::AskOverwrite)))
        return;
    Remember(dialog.Choice());
    Export(path, dialog.Choice());
}

void GraphOutput::Export(const QString& path, const ExportChoice& choice) {
    const std::optional<PictureFormat> picture = PictureFormatOf(path);
    const std::optional<std::string> bytes =
        picture ? MakePicture(*picture, choice)
                : GraphTextAs(GraphFormatOf(FromPath(path)).value_or(GraphFormat::Json), canvas_.Graph());
    if (!bytes)
        return;
    const FileError error = files_.WriteWhole(FromPath(path), *bytes);
    if (error != FileError::None)
        return ShowFileError("frmMain: GraphExport", error, FromPath(path));
    ports_.message(TextNr(Text::GraphExported, path));
}

std::optional<std::string> GraphOutput::MakePicture(PictureFormat format, const ExportChoice& choice) {
    const XGraph& graph = canvas_.Graph();
    const GraphPicture picture(graph, settings_,
                               {.hasLegend = choice.hasLegend,
                                .caption = choice.hasCaption ? CaptionOf(graph) : QString(),
                                .hasClearGround = format == PictureFormat::Png && choice.hasClearGround,
                                .hasPaleModules = format == PictureFormat::Bmp});
    QByteArray bytes;
    const bool isWhole = ports_.run("GraphExport", [&] {
        gProgress().Label(gText.TextNr(Text::WritingPicture));
        bytes = PictureBytes(picture, format, choice.scale);
    });
    if (!isWhole) {
        ports_.message(TextNr(Text::ExportCancelled));
        return {};
    }
    if (bytes.isEmpty()) {
        const QSizeF size = picture.Size() * (format == PictureFormat::Png ? choice.scale : 1);
        ShowFailure(window_, TextNr(Text::PictureTooLarge, NumberText(std::llround(size.width())),
                                    NumberText(std::llround(size.height()))));
        return {};
    }
    return bytes.toStdString();
}

void GraphOutput::GraphPrint() {
    const GraphPicture picture(canvas_.Graph(), settings_);
    if (!PreviewPicture(picture, window_))
        ShowFailure(window_, TextNr(Text::GraphNotPrinted));
}

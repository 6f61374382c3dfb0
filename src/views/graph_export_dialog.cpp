#include "views/graph_export_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <algorithm>
#include <array>

#include "canvas/graph_canvas.h"
#include "widgets/qt_text.h"
#include "xgraph/graph_export.h"

namespace {

constexpr int kLargestScale = 4;

struct Kind {
    Text text;
    const char* suffix;
};
constexpr std::array kKinds{
    Kind{Text::BmpFiles, "bmp"},   Kind{Text::PngFiles, "png"}, Kind{Text::SvgFiles, "svg"},
    Kind{Text::PdfFiles, "pdf"},   Kind{Text::DotFiles, "dot"}, Kind{Text::GraphMlFiles, "graphml"},
    Kind{Text::JsonFiles, "json"},
};

QString FilterOf(const Kind& kind) {
    return QStringLiteral("%1 (*.%2)").arg(TextNr(kind.text), QLatin1String(kind.suffix));
}

// Of a diagram, not one to go on with.
bool IsExported(const QString& path) {
    const std::optional<GraphFormat> format = GraphFormatOf(FromPath(path));
    return PictureFormatOf(path) || (format && format != GraphFormat::Ovg);
}

}  // namespace

GraphExportDialog::GraphExportDialog(const ExportChoice& last, const QString& name, QWidget* parent)
    : QFileDialog(parent, TextNr(Text::ExportGraph), last.directory),
      legend_(new QCheckBox(TextNr(Text::Legend), this)),
      caption_(new QCheckBox(TextNr(Text::ExportCaption), this)),
      clearGround_(new QCheckBox(TextNr(Text::ExportClearGround), this)),
      scaleLabel_(new QLabel(TextNr(Text::ExportScale), this)),
      scale_(new QSpinBox(this)) {
    // The system's own dialog has no room for the options, and neither its word on existing files.
    setOptions(DontUseNativeDialog | DontConfirmOverwrite);
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    QStringList filters;
    for (const Kind& kind : kKinds)
        filters.append(FilterOf(kind));
    setNameFilters(filters);
    const auto* const kind =
        std::ranges::find_if(kKinds, [&](const Kind& one) { return last.suffix == QLatin1String(one.suffix); });
    selectNameFilter(FilterOf(kind == kKinds.end() ? kKinds.front() : *kind));
    selectFile(name);
    AddOptions(last);
    connect(this, &QFileDialog::filterSelected, this, &GraphExportDialog::EnableOptions);
    if (const auto* const edit = findChild<QLineEdit*>())
        connect(edit, &QLineEdit::textChanged, this, &GraphExportDialog::EnableOptions);
    EnableOptions();
}

void GraphExportDialog::AddOptions(const ExportChoice& last) {
    legend_->setObjectName(QStringLiteral("legend"));
    caption_->setObjectName(QStringLiteral("caption"));
    clearGround_->setObjectName(QStringLiteral("clearGround"));
    scale_->setObjectName(QStringLiteral("scale"));
    legend_->setChecked(last.hasLegend);
    caption_->setChecked(last.hasCaption);
    clearGround_->setChecked(last.hasClearGround);
    scale_->setRange(1, kLargestScale);
    scale_->setValue(last.scale);
    scale_->setSuffix(QStringLiteral("\u00A0\u00D7"));
    scaleLabel_->setBuddy(scale_);
    auto* const row = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{legend_, caption_, clearGround_, scaleLabel_, scale_})
        row->addWidget(widget);
    row->addStretch();
    if (auto* const grid = qobject_cast<QGridLayout*>(layout()))
        grid->addLayout(row, grid->rowCount(), 0, 1, grid->columnCount());
}

// Texts for other programs have neither legend nor caption, and only PNG has pixels to choose.
void GraphExportDialog::EnableOptions() {
    const std::optional<PictureFormat> format = PictureFormatOf(Path());
    legend_->setEnabled(format.has_value());
    caption_->setEnabled(format.has_value());
    const bool isPng = format == PictureFormat::Png;
    clearGround_->setEnabled(isPng);
    scaleLabel_->setEnabled(isPng);
    scale_->setEnabled(isPng);
}

QString GraphExportDialog::Path() const {
    QString path = selectedFiles().value(0);
    if (IsExported(path))
        return path;
    const QString filter = selectedNameFilter();
    return path + filter.mid(filter.lastIndexOf(QLatin1Char('.'))).chopped(1);
}

ExportChoice GraphExportDialog::Choice() const {
    const QString path = Path();
    return {.directory = directory().path(),
            .suffix = path.mid(path.lastIndexOf(QLatin1Char('.')) + 1).toLower(),
            .hasLegend = legend_->isChecked(),
            .hasCaption = caption_->isChecked(),
            .hasClearGround = clearGround_->isChecked(),
            .scale = scale_->value()};
}

#include "views/frm_reports.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "model/clsProjekt.h"
#include "platform/settings_file.h"
#include "views/dialogs.h"
#include "widgets/qt_text.h"

namespace {

constexpr const char* kSection = "ALLGEMEIN";
constexpr const char* kFolder = "ReportDir";
constexpr const char* kInFolder = "ReportsInFolder";

Text TitleOf(ReportKind kind) {
    return kind == ReportKind::Structure ? Text::StructureReports
           : kind == ReportKind::Calls   ? Text::CallsReports
                                         : Text::DeathsReport;
}

}  // namespace

frmReports::frmReports(SettingsFile& file, QWidget* parent)
    : QDialog(parent),
      file_(file),
      beside_(new QRadioButton),
      inFolder_(new QRadioButton),
      folder_(new QLineEdit),
      choose_(new QPushButton),
      write_(new QPushButton),
      cancel_(new QPushButton),
      plan_(new QLabel),
      note_(new QLabel) {
    setObjectName(QStringLiteral("frmReports"));
    setAttribute(Qt::WA_QuitOnClose, false);
    Build();
    connect(beside_, &QRadioButton::toggled, this, &frmReports::ShowPlan);
    connect(folder_, &QLineEdit::textChanged, this, &frmReports::ShowPlan);
    connect(choose_, &QPushButton::clicked, this, &frmReports::ChooseFolder);
    // Whoever has typed a folder and presses Enter wants the reports there.
    connect(folder_, &QLineEdit::textEdited, this, [this] { write_->setDefault(true); });
    connect(write_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
}

void frmReports::Build() {
    beside_->setObjectName(QStringLiteral("beside"));
    inFolder_->setObjectName(QStringLiteral("inFolder"));
    folder_->setObjectName(QStringLiteral("folder"));
    write_->setObjectName(QStringLiteral("cmdWrite"));
    cancel_->setObjectName(QStringLiteral("cmdCancel"));
    plan_->setObjectName(QStringLiteral("plan"));
    for (QLabel* label : {plan_, note_}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        // Room for two lines from the start, so that the buttons stay where they are.
        label->setMinimumHeight(2 * fontMetrics().lineSpacing());
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }
    choose_->setAutoDefault(false);
    write_->setAutoDefault(false);
    cancel_->setDefault(true);
    folder_->setMinimumWidth(50 * fontMetrics().averageCharWidth());
    auto* grid = new QGridLayout;
    grid->addWidget(beside_, 0, 0, 1, 3);
    grid->addWidget(inFolder_, 1, 0);
    grid->addWidget(folder_, 1, 1);
    grid->addWidget(choose_, 1, 2);
    grid->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(write_);
    buttons->addWidget(cancel_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addSpacing(6);
    layout->addWidget(plan_);
    layout->addWidget(note_);
    layout->addStretch();
    layout->addLayout(buttons);
}

void frmReports::Texte() {
    setWindowTitle(TextNr(TitleOf(kind_)));
    beside_->setText(TextNr(Text::BesideSources));
    inFolder_->setText(TextNr(Text::InOneFolder) + QLatin1Char(':'));
    folder_->setAccessibleName(TextNr(Text::FolderForReports));
    choose_->setText(TextNr(Text::Choose));
    write_->setText(TextNr(Text::Write));
    cancel_->setText(TextNr(Text::Cancel));
    AssignMnemonics(*this, {cancel_});
}

std::optional<std::string> frmReports::Ask(const clsProjekt& projekt, ReportKind kind) {
    projekt_ = &projekt;
    kind_ = kind;
    Texte();
    const QFileInfo project(ToPath(projekt.TheFiles().SystemPath(projekt.FullPath)));
    const QString suggested = project.absoluteFilePath() + QLatin1Char(' ') + TextNr(Text::Reports);
    const std::string last = file_.ReadString(kSection, kFolder, "", 4096);
    folder_->setText(QDir::toNativeSeparators(last.empty() ? suggested : ToPath(last)));
    folder_->setCursorPosition(0);
    (file_.ReadString(kSection, kInFolder, "0") == "1" ? inFolder_ : beside_)->setChecked(true);
    ShowPlan();
    cancel_->setDefault(true);
    cancel_->setFocus();
    const bool accepted = exec() == Accepted;
    projekt_ = nullptr;
    if (!accepted)
        return {};
    file_.WriteString(kSection, kInFolder, inFolder_->isChecked() ? "1" : "0");
    if (inFolder_->isChecked())
        file_.WriteString(kSection, kFolder, Folder());
    file_.Save();
    return Folder();
}

std::string frmReports::Folder() const {
    const QString typed = folder_->text().trimmed();
    if (beside_->isChecked() || typed.isEmpty())
        return {};
    return FromPath(QDir::cleanPath(QFileInfo(QDir::fromNativeSeparators(typed)).absoluteFilePath()));
}

void frmReports::ChooseFolder() {
    const QString chosen = QFileDialog::getExistingDirectory(this, TextNr(Text::FolderForReports), folder_->text());
    if (chosen.isEmpty())
        return;
    folder_->setText(QDir::toNativeSeparators(chosen));
    inFolder_->setChecked(true);
}

QString frmReports::PlanText(const ReportPlan& plan) const {
    const QString folder = QDir::toNativeSeparators(QDir::cleanPath(ToPath(plan.folder)));
    if (plan.folders > 1)
        return TextNr(Text::FilesGoToFolders, NumberText(plan.files), NumberText(plan.folders));
    return plan.files == 1 ? TextNr(Text::OneFileGoesTo, folder)
                           : TextNr(Text::FilesGoTo, NumberText(plan.files), folder);
}

void frmReports::ShowPlan() {
    if (!projekt_)
        return;
    folder_->setEnabled(inFolder_->isChecked());
    const std::string folder = Folder();
    const bool isNamed = beside_->isChecked() || !folder.empty();
    write_->setEnabled(isNamed);
    write_->setToolTip(isNamed ? QString() : TextNr(Text::ChooseFolderFirst));
    const ReportPlan plan = isNamed ? PlanReports(*projekt_, kind_, folder) : ReportPlan();
    plan_->setText(isNamed ? PlanText(plan) : TextNr(Text::ChooseFolderFirst));
    const bool isNew = isNamed && !folder.empty() && !QFileInfo(ToPath(folder)).isDir();
    note_->setText(plan.existing > 0 ? TextNr(Text::FilesReplaced, NumberText(plan.existing))
                   : isNew           ? TextNr(Text::FolderGone)
                                     : QString());
}

#include "views/frm_optionen.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShowEvent>
#include <QTabWidget>
#include <QVBoxLayout>

#include "display/option_values.h"
#include "model/clsProjekt.h"
#include "project/start.h"
#include "views/dialogs.h"
#include "views/option_pages.h"
#include "widgets/qt_text.h"

frmOptionen::frmOptionen(Files& files, SettingsFile& file, Settings& settings, std::string programDirectory,
                         QWidget* parent)
    : QDialog(parent),
      files_(files),
      file_(file),
      settings_(settings),
      programDirectory_(std::move(programDirectory)),
      values_(settings),
      tabs_(new QTabWidget),
      general_(new GeneralPage(values_)),
      visual_(new VisualPage(values_)),
      reports_(new ReportsPage),
      cmdDefaults_(new QPushButton),
      cmdOK_(new QPushButton),
      cmdCancel_(new QPushButton),
      cmdApply_(new QPushButton) {
    setObjectName(QStringLiteral("frmOptionen"));
    setAttribute(Qt::WA_QuitOnClose, false);
    cmdDefaults_->setObjectName(QStringLiteral("cmdDefaults"));
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdApply_->setObjectName(QStringLiteral("cmdApply"));
    for (QWidget* page :
         {static_cast<QWidget*>(general_), static_cast<QWidget*>(visual_), static_cast<QWidget*>(reports_)})
        tabs_->addTab(page, QString());

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdDefaults_);
    buttons->addStretch();
    for (QPushButton* button : {cmdOK_, cmdCancel_, cmdApply_}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    cmdDefaults_->setAutoDefault(false);
    cmdOK_->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_, 1);
    layout->addLayout(buttons);

    connect(cmdOK_, &QPushButton::clicked, this, [this] {
        Apply();
        accept();
    });
    connect(cmdCancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdApply_, &QPushButton::clicked, this, &frmOptionen::Apply);
    connect(cmdDefaults_, &QPushButton::clicked, this, [this] {
        values_ = DefaultOptions(settings_);
        ShowValues();
    });
    connect(general_, &GeneralPage::Changed, this, &frmOptionen::ShowWhetherChanged);
    connect(visual_, &VisualPage::Changed, this, &frmOptionen::ShowWhetherChanged);
    connect(reports_, &ReportsPage::ReportStructure, this, &frmOptionen::ReportStructure);
    connect(reports_, &ReportsPage::ReportCalls, this, &frmOptionen::ReportCalls);
    connect(reports_, &ReportsPage::ReportDeaths, this, &frmOptionen::ReportDeaths);
    Texte();
    ShowValues();
}

void frmOptionen::Texte() {
    setWindowTitle(TextNr(Text::Options));
    tabs_->setTabText(0, TextNr(Text::Options));
    tabs_->setTabText(1, TextNr(Text::ColoursAndFonts));
    tabs_->setTabText(2, TextNr(Text::Reports));
    tabs_->setAccessibleName(TextNr(Text::Options));
    general_->Texte();
    visual_->Texte();
    reports_->Texte();
    cmdDefaults_->setText(TextNr(Text::Defaults));
    cmdOK_->setText(TextNr(Text::Ok));
    cmdCancel_->setText(TextNr(Text::Cancel));
    cmdApply_->setText(TextNr(Text::Apply));
    AssignMnemonics(*this, {cmdOK_, cmdCancel_});
}

void frmOptionen::ShowValues() {
    general_->ShowValues();
    visual_->ShowValues();
    ShowWhetherChanged();
}

void frmOptionen::ShowWhetherChanged() {
    cmdApply_->setEnabled(values_ != settings_);
}

void frmOptionen::Apply() {
    if (ApplyOptions(values_, settings_, files_, programDirectory_, file_)) {
        Texte();
        Q_EMIT LanguageChanged();
    }
    Q_EMIT Applied();
    cmdApply_->setEnabled(false);
}

void frmOptionen::ShowReportResult(const QString& text) {
    reports_->ShowResult(text);
}

void frmOptionen::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // Restoring the window from the task bar must not reset what the user has edited.
    if (event->spontaneous())
        return;
    values_ = settings_;
    reports_->ShowResult({});
    reports_->SetProjectOpen(gProjekt != nullptr);
    Texte();
    ShowValues();
}

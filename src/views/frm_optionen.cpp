#include "views/frm_optionen.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "views/dialogs.h"
#include "views/qt_text.h"

namespace {

// Texts beside the colours, in the order of OptionValues::Colour.
constexpr std::array<Text, OptionValues::Further> kColourTexts = {
    Text::PublicObjects, Text::PrivateObjects, Text::CallsWithin, Text::CallsFromOutside, Text::CallsToOutside,
    Text::PossibleCalls, Text::NotCompiled,    Text::Comment,     Text::Strings};

// A page's name in its own letters, which every reader of them knows.
struct PageName {
    const char* number;
    const char16_t* name;
};
constexpr PageName kPages[] = {
    {"1250", u"Windows-1250 (ČŁŐŘ)"}, {"1251", u"Windows-1251 (АБВГ)"},   {"1252", u"Windows-1252 (ÄÉÑØ)"},
    {"1253", u"Windows-1253 (ΑΒΓΔ)"}, {"1254", u"Windows-1254 (ĞİŞÜ)"},   {"1255", u"Windows-1255 (אבגד)"},
    {"1256", u"Windows-1256 (ابتث)"}, {"1257", u"Windows-1257 (ĀĖŅŲ)"},   {"1258", u"Windows-1258 (ĂĐƠƯ)"},
    {"874", u"Windows-874 (กขคง)"},   {"932", u"Shift-JIS 932 (あア漢)"}, {"936", u"GBK 936 (简体)"},
    {"949", u"UHC 949 (한국어)"},     {"950", u"Big5 950 (繁體)"},
};

QColor FromBgr(std::int32_t bgr) {
    return {bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF};
}

std::int32_t ToBgr(const QColor& colour) {
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

QFont ToFont(const FontSetting& setting) {
    QFont font(ToQString(setting.name));
    if (setting.size > 0)
        font.setPointSizeF(static_cast<qreal>(setting.size));
    font.setBold(setting.bold);
    font.setItalic(setting.italic);
    return font;
}

QLabel* Note() {
    auto* note = new QLabel;
    note->setForegroundRole(QPalette::PlaceholderText);
    note->setWordWrap(true);
    return note;
}

void Title(QGroupBox* frame, const QString& text) {
    frame->setTitle(text);
    frame->setAccessibleName(text);
}

}  // namespace

frmOptionen::frmOptionen(Files& files, SettingsFile& settings, std::string programDirectory, QWidget* parent)
    : QDialog(parent),
      files_(files),
      settings_(settings),
      programDirectory_(std::move(programDirectory)),
      tabs_(new QTabWidget),
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
    tabs_->addTab(GeneralPage(), QString());
    tabs_->addTab(VisualPage(), QString());
    tabs_->addTab(ReportsPage(), QString());

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
        values_ = DefaultOptions();
        ShowValues();
    });
    values_ = CurrentOptions();
    Texte();
    ShowValues();
}

QWidget* frmOptionen::GeneralPage() {
    languageFrame_ = new QGroupBox;
    win32Frame_ = new QGroupBox;
    readFrame_ = new QGroupBox;
    // Languages are called by their own names.
    optLanguage_ = {new QRadioButton(QStringLiteral("English")), new QRadioButton(QStringLiteral("Deutsch"))};
    optWin32_ = {new QRadioButton, new QRadioButton};
    loadLibs_ = new QCheckBox;
    procVars_ = new QCheckBox(QStringLiteral("ProcVars in Treeview"));
    codePageLabel_ = new QLabel;
    codePage_ = new QComboBox;
    codePageLabel_->setBuddy(codePage_);
    note_ = Note();
    optLanguage_[0]->setObjectName(QStringLiteral("optLanguage0"));
    optLanguage_[1]->setObjectName(QStringLiteral("optLanguage1"));
    optWin32_[0]->setObjectName(QStringLiteral("optWin320"));
    optWin32_[1]->setObjectName(QStringLiteral("optWin321"));
    loadLibs_->setObjectName(QStringLiteral("LoadLibs"));
    procVars_->setObjectName(QStringLiteral("ProcVars"));
    codePage_->setObjectName(QStringLiteral("CodePage"));

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* languages = new QHBoxLayout(languageFrame_);
    for (QRadioButton* button : optLanguage_)
        languages->addWidget(button);
    languages->addStretch();
    auto* reading = new QVBoxLayout(readFrame_);
    auto* bits = new QHBoxLayout(win32Frame_);
    for (QRadioButton* button : optWin32_)
        bits->addWidget(button);
    bits->addStretch();
    auto* pageLine = new QHBoxLayout;
    pageLine->addWidget(codePageLabel_);
    pageLine->addWidget(codePage_, 1);
    reading->addWidget(loadLibs_);
    reading->addLayout(pageLine);
    reading->addWidget(note_);
    layout->addWidget(languageFrame_);
    layout->addWidget(win32Frame_);
    layout->addWidget(readFrame_);
    layout->addWidget(procVars_);
    layout->addStretch();

    for (QRadioButton* button : {optLanguage_[0], optLanguage_[1], optWin32_[0], optWin32_[1]})
        connect(button, &QRadioButton::toggled, this, &frmOptionen::TakeValues);
    for (QCheckBox* box : {loadLibs_, procVars_})
        connect(box, &QCheckBox::toggled, this, &frmOptionen::TakeValues);
    connect(codePage_, &QComboBox::currentIndexChanged, this, &frmOptionen::TakeValues);
    return page;
}

QWidget* frmOptionen::VisualPage() {
    colourFrame_ = new QGroupBox;
    fontFrame_ = new QGroupBox;
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* grid = new QGridLayout(colourFrame_);
    grid->setHorizontalSpacing(10);
    for (std::size_t nr = 0; nr < colours_.size(); ++nr) {
        auto* button = colours_[nr] = new QToolButton;
        button->setObjectName(QStringLiteral("colour%1").arg(nr));
        button->setIconSize(QSize(32, 16));
        button->setFocusPolicy(Qt::StrongFocus);
        connect(button, &QToolButton::clicked, this, [this, nr] { ChooseColour(nr); });
        auto* label = colourLabels_[nr] = new QLabel;
        label->setBuddy(button);
        const int rows = (OptionValues::Further + 1) / 2;
        const int row = static_cast<int>(nr) % rows;
        const int column = static_cast<int>(nr) / rows * 3;
        grid->addWidget(button, row, column);
        grid->addWidget(label, row, column + 1);
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(2, 20);
    grid->setColumnStretch(4, 1);
    auto* fontGrid = new QGridLayout(fontFrame_);
    fontGrid->setColumnStretch(1, 1);
    fontGrid->setHorizontalSpacing(12);
    fonts_ = {FontRow{new QLabel, new QLabel, new QPushButton, &OptionValues::codeFont},
              FontRow{new QLabel, new QLabel, new QPushButton, &OptionValues::treeFont}};
    for (std::size_t nr = 0; nr < fonts_.size(); ++nr) {
        FontRow& row = fonts_[nr];
        row.sample->setObjectName(QStringLiteral("fontSample%1").arg(nr));
        row.sample->setFrameShape(QFrame::StyledPanel);
        row.sample->setBackgroundRole(QPalette::Base);
        row.sample->setAutoFillBackground(true);
        row.sample->setMargin(4);
        // A large font is shown cut off; the window keeps its size.
        row.sample->setFixedHeight(3 * fontMetrics().height());
        row.sample->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        row.choose->setObjectName(QStringLiteral("cmdFont%1").arg(nr));
        row.choose->setAutoDefault(false);
        const int line = static_cast<int>(nr);
        fontGrid->addWidget(row.title, line, 0);
        fontGrid->addWidget(row.sample, line, 1);
        fontGrid->addWidget(row.choose, line, 2);
        connect(row.choose, &QPushButton::clicked, this, [this, nr] { ChooseFont(fonts_[nr]); });
    }
    layout->addWidget(colourFrame_);
    layout->addWidget(fontFrame_);
    layout->addStretch();
    return page;
}

QWidget* frmOptionen::ReportsPage() {
    reportFrame_ = new QGroupBox;
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* column = new QVBoxLayout(reportFrame_);
    auto* buttons = new QVBoxLayout;
    auto* left = new QHBoxLayout;
    left->addLayout(buttons);
    left->addStretch();
    column->addLayout(left);
    reports_ = {new QPushButton(QStringLiteral("Structure reports")), new QPushButton(QStringLiteral("Calls reports")),
                new QPushButton(QStringLiteral("Death Objects Report"))};
    const char* const names[] = {"cmdReportStructure", "cmdReportCalls", "cmdReportDeaths"};
    void (frmOptionen::*const signals_[])() = {&frmOptionen::ReportStructure, &frmOptionen::ReportCalls,
                                               &frmOptionen::ReportDeaths};
    for (std::size_t nr = 0; nr < reports_.size(); ++nr) {
        reports_[nr]->setObjectName(QLatin1String(names[nr]));
        reports_[nr]->setAutoDefault(false);
        buttons->addWidget(reports_[nr]);
        connect(reports_[nr], &QPushButton::clicked, this, signals_[nr]);
    }
    reportResult_ = Note();
    reportResult_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(reportResult_);
    layout->addWidget(reportFrame_);
    layout->addStretch();
    return page;
}

void frmOptionen::Texte() {
    setWindowTitle(TextNr(Text::Options));
    tabs_->setTabText(0, TextNr(Text::Options));
    tabs_->setTabText(1, TextNr(Text::ColoursAndFonts));
    tabs_->setTabText(2, TextNr(Text::Reports));
    tabs_->setAccessibleName(TextNr(Text::Options));
    Title(languageFrame_, TextNr(Text::Language));
    Title(win32Frame_, TextNr(Text::CompiledFor));
    Title(readFrame_, QString());
    Title(colourFrame_, TextNr(Text::Colours));
    Title(fontFrame_, TextNr(Text::Fonts));
    Title(reportFrame_, QStringLiteral("Reports"));
    optWin32_[0]->setText(TextNr(Text::Bits, QStringLiteral("32")));
    optWin32_[1]->setText(TextNr(Text::Bits, QStringLiteral("16")));
    loadLibs_->setText(TextNr(Text::LoadLibraries));
    codePageLabel_->setText(TextNr(Text::CodePageOfSources) + QLatin1Char(':'));
    codePage_->setAccessibleName(TextNr(Text::CodePageOfSources));
    note_->setText(TextNr(Text::HoldsFromNextOpening));
    for (std::size_t nr = 0; nr < colours_.size(); ++nr) {
        colourLabels_[nr]->setText(TextNr(kColourTexts[nr]));
        colours_[nr]->setAccessibleName(TextNr(kColourTexts[nr]));
        colours_[nr]->setToolTip(TextNr(kColourTexts[nr]) + QStringLiteral(": ") + TextNr(Text::Choose));
    }
    const Text fontTexts[] = {Text::Code, Text::Trees};
    for (std::size_t nr = 0; nr < fonts_.size(); ++nr) {
        fonts_[nr].title->setText(TextNr(fontTexts[nr]));
        fonts_[nr].choose->setText(TextNr(Text::Choose));
        fonts_[nr].choose->setAccessibleName(TextNr(fontTexts[nr]) + QStringLiteral(": ") + TextNr(Text::Choose));
    }
    for (QPushButton* report : reports_)
        report->setToolTip(report->isEnabled() ? QString() : TextNr(Text::OpenProjectFirst));
    cmdDefaults_->setText(TextNr(Text::Defaults));
    cmdOK_->setText(TextNr(Text::Ok));
    cmdCancel_->setText(TextNr(Text::Cancel));
    cmdApply_->setText(TextNr(Text::Apply));
    FillCodePages();
    AssignMnemonics(*this, {cmdOK_, cmdCancel_});
}

void frmOptionen::FillCodePages() {
    const bool before = std::exchange(showing_, true);
    codePage_->clear();
    codePage_->addItem(TextNr(Text::CodePageAutomatic), QStringLiteral("auto"));
    for (const PageName& page : kPages)
        if (CodePage(page.number).Setting() == page.number)
            codePage_->addItem(QString::fromUtf16(page.name), QLatin1String(page.number));
    const QString chosen = ToQString(values_.codePage);
    if (codePage_->findData(chosen) < 0)
        codePage_->addItem(chosen, chosen);
    codePage_->setCurrentIndex(codePage_->findData(chosen));
    // The box would only learn of its new width some time after the window has taken its size.
    codePage_->setSizeAdjustPolicy(QComboBox::AdjustToContentsOnFirstShow);
    codePage_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    codePage_->setMinimumWidth(codePage_->sizeHint().width());
    showing_ = before;
}

void frmOptionen::ShowValues() {
    showing_ = true;
    optLanguage_[values_.language == "german" ? 1 : 0]->setChecked(true);
    optWin32_[values_.win32 == 1 ? 0 : 1]->setChecked(true);
    loadLibs_->setChecked(values_.loadLibs != 0);
    procVars_->setChecked(values_.procVars != 0);
    FillCodePages();
    for (std::size_t nr = 0; nr < colours_.size(); ++nr)
        ShowColour(nr);
    for (const FontRow& row : fonts_)
        ShowFont(row);
    showing_ = false;
    cmdApply_->setEnabled(values_ != CurrentOptions());
}

void frmOptionen::TakeValues() {
    if (showing_)
        return;
    values_.language = optLanguage_[1]->isChecked() ? "german" : "english";
    values_.win32 = optWin32_[0]->isChecked() ? 1 : 0;
    values_.loadLibs = loadLibs_->isChecked() ? 1 : 0;
    values_.procVars = procVars_->isChecked() ? 1 : 0;
    values_.codePage = codePage_->currentData().toString().toStdString();
    cmdApply_->setEnabled(values_ != CurrentOptions());
}

void frmOptionen::ShowColour(std::size_t nr) {
    QToolButton& button = *colours_[nr];
    const QSize size = button.iconSize();
    QPixmap swatch(size * devicePixelRatioF());
    swatch.setDevicePixelRatio(devicePixelRatioF());
    swatch.fill(FromBgr(values_.colours[nr]));
    QPainter painter(&swatch);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    painter.end();
    button.setIcon(swatch);
    button.setAccessibleDescription(FromBgr(values_.colours[nr]).name());
}

void frmOptionen::ShowFont(const FontRow& row) {
    const FontSetting& font = values_.*row.font;
    row.sample->setFont(ToFont(font));
    row.sample->setText(ToQString(font.name) + QLatin1Char(' ') + QString::number(static_cast<double>(font.size)));
    row.sample->setToolTip(row.sample->text());
}

void frmOptionen::ChooseColour(std::size_t nr) {
    const QColor chosen = QColorDialog::getColor(FromBgr(values_.colours[nr]), this, TextNr(kColourTexts[nr]));
    if (!chosen.isValid())
        return;
    values_.colours[nr] = ToBgr(chosen);
    ShowColour(nr);
    cmdApply_->setEnabled(values_ != CurrentOptions());
}

void frmOptionen::ChooseFont(const FontRow& row) {
    bool accepted = false;
    FontSetting& font = values_.*row.font;
    const QFont chosen = QFontDialog::getFont(&accepted, ToFont(font), this, row.title->text());
    if (!accepted)
        return;
    font = {static_cast<float>(chosen.pointSizeF()), FromQString(chosen.family()), chosen.bold(), chosen.italic()};
    ShowFont(row);
    cmdApply_->setEnabled(values_ != CurrentOptions());
}

void frmOptionen::Apply() {
    if (ApplyOptions(values_, files_, programDirectory_, settings_)) {
        Texte();
        Q_EMIT LanguageChanged();
    }
    Q_EMIT Applied();
    cmdApply_->setEnabled(false);
}

void frmOptionen::ShowReportResult(const QString& text) {
    reportResult_->setText(text);
}

void frmOptionen::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // Coming back from the task bar is no new start.
    if (event->spontaneous())
        return;
    values_ = CurrentOptions();
    reportResult_->clear();
    for (QPushButton* report : reports_)
        report->setEnabled(gProjekt != nullptr);
    Texte();
    ShowValues();
}

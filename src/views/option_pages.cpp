#include "views/option_pages.h"

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDatabase>
#include <QFontDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <string_view>
#include <utility>

#include "platform/code_page.h"
#include "views/library_options.h"
#include "widgets/code_style.h"
#include "widgets/qt_text.h"

namespace {

struct ColourRow {
    Text text;
    std::int32_t Settings::*colour;
};
constexpr ColourRow kColourRows[] = {
    {Text::PublicObjects, &Settings::ColPublics},    {Text::PrivateObjects, &Settings::ColPrivates},
    {Text::LocalVariables, &Settings::ColCallLocal}, {Text::CallsWithin, &Settings::ColCallIn},
    {Text::CallsToOutside, &Settings::ColCallOut},   {Text::PossibleCalls, &Settings::ColCallMayBe},
    {Text::NotCompiled, &Settings::ColCondCompile},  {Text::Comment, &Settings::ColComment},
    {Text::Strings, &Settings::ColString},
};

// Some characters of a code page, which those who need it can read.
struct PageSample {
    std::string_view number;
    const char16_t* sample;
};
constexpr PageSample kSamples[] = {
    {"1250", u"ČŁŐŘ"},  {"1251", u"АБВГ"}, {"1252", u"ÄÉÑØ"},  {"1253", u"ΑΒΓΔ"}, {"1254", u"ĞİŞÜ"},
    {"1255", u"אבגד"},  {"1256", u"ابتث"}, {"1257", u"ĀĖŅŲ"},  {"1258", u"ĂĐƠƯ"}, {"874", u"กขคง"},
    {"932", u"あア漢"}, {"936", u"简体"},  {"949", u"한국어"}, {"950", u"繁體"},
};

std::int32_t ToBgr(const QColor& colour) {
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
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

GeneralPage::GeneralPage(Settings& values, QWidget* parent)
    : QWidget(parent),
      values_(values),
      languageFrame_(new QGroupBox),
      win32Frame_(new QGroupBox),
      readFrame_(new QGroupBox) {
    // Languages are called by their own names.
    optLanguage_ = {new QRadioButton(QStringLiteral("English")), new QRadioButton(QStringLiteral("Deutsch"))};
    optWin32_ = {new QRadioButton, new QRadioButton};
    loadLibs_ = new QCheckBox;
    libraries_ = new LibraryOptions;
    readCalls_ = new QCheckBox;
    refreshAuto_ = new QCheckBox;
    procVars_ = new QCheckBox(QStringLiteral("ProcVars in Treeview"));
    askAtClosing_ = new QCheckBox;
    codePageLabel_ = new QLabel;
    codePage_ = new QComboBox;
    codePageLabel_->setBuddy(codePage_);
    note_ = Note();
    optLanguage_[0]->setObjectName(QStringLiteral("optLanguage0"));
    optLanguage_[1]->setObjectName(QStringLiteral("optLanguage1"));
    optWin32_[0]->setObjectName(QStringLiteral("optWin320"));
    optWin32_[1]->setObjectName(QStringLiteral("optWin321"));
    loadLibs_->setObjectName(QStringLiteral("LoadLibs"));
    readCalls_->setObjectName(QStringLiteral("ReadCalls"));
    refreshAuto_->setObjectName(QStringLiteral("RefreshAuto"));
    procVars_->setObjectName(QStringLiteral("ProcVars"));
    askAtClosing_->setObjectName(QStringLiteral("AskAtClosing"));
    codePage_->setObjectName(QStringLiteral("CodePage"));

    auto* layout = new QVBoxLayout(this);
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
    reading->addWidget(libraries_);
    reading->addWidget(readCalls_);
    reading->addLayout(pageLine);
    reading->addWidget(note_);
    layout->addWidget(languageFrame_);
    layout->addWidget(win32Frame_);
    layout->addWidget(readFrame_);
    layout->addWidget(refreshAuto_);
    layout->addWidget(procVars_);
    layout->addWidget(askAtClosing_);
    layout->addStretch();

    for (QRadioButton* button : {optLanguage_[0], optLanguage_[1], optWin32_[0], optWin32_[1]})
        connect(button, &QRadioButton::toggled, this, &GeneralPage::TakeValues);
    for (QCheckBox* box : {loadLibs_, readCalls_, refreshAuto_, procVars_, askAtClosing_})
        connect(box, &QCheckBox::toggled, this, &GeneralPage::TakeValues);
    connect(codePage_, &QComboBox::currentIndexChanged, this, &GeneralPage::TakeValues);
    connect(libraries_, &LibraryOptions::Changed, this, &GeneralPage::TakeValues);
    connect(loadLibs_, &QCheckBox::toggled, libraries_, &QWidget::setEnabled);
}

void GeneralPage::Texte() {
    Title(languageFrame_, TextNr(Text::Language));
    Title(win32Frame_, TextNr(Text::CompiledFor));
    Title(readFrame_, QString());
    optWin32_[0]->setText(TextNr(Text::Bits, QStringLiteral("32")));
    optWin32_[1]->setText(TextNr(Text::Bits, QStringLiteral("16")));
    loadLibs_->setText(TextNr(Text::LoadLibraries));
    libraries_->Texte();
    readCalls_->setText(TextNr(Text::ReadCallsAtOpening));
    refreshAuto_->setText(TextNr(Text::RefreshAutomatically));
    askAtClosing_->setText(TextNr(Text::AskBeforeClosing));
    codePageLabel_->setText(TextNr(Text::CodePageOfSources) + QLatin1Char(':'));
    codePage_->setAccessibleName(TextNr(Text::CodePageOfSources));
    note_->setText(TextNr(Text::HoldsFromNextOpening));
    FillCodePages();
}

void GeneralPage::FillCodePages() {
    const bool before = std::exchange(showing_, true);
    codePage_->clear();
    codePage_->addItem(TextNr(Text::CodePageAutomatic), QStringLiteral("auto"));
    for (const PageSample& page : kSamples)
        if (CodePage(page.number).Setting() == page.number)
            codePage_->addItem(
                QStringLiteral("%1 (%2)").arg(ToQString(NameOfCodePage(page.number)), QString::fromUtf16(page.sample)),
                ToQString(page.number));
    const QString chosen = ToQString(values_.CodePage);
    if (codePage_->findData(chosen) < 0)
        codePage_->addItem(chosen, chosen);
    codePage_->setCurrentIndex(codePage_->findData(chosen));
    // The box would only learn of its new width some time after the window has taken its size.
    codePage_->setSizeAdjustPolicy(QComboBox::AdjustToContentsOnFirstShow);
    codePage_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    codePage_->setMinimumWidth(codePage_->sizeHint().width());
    showing_ = before;
}

void GeneralPage::ShowValues() {
    showing_ = true;
    optLanguage_[values_.Language == "german" ? 1 : 0]->setChecked(true);
    optWin32_[values_.Win32 == 1 ? 0 : 1]->setChecked(true);
    loadLibs_->setChecked(values_.LoadLibs != 0);
    libraries_->setEnabled(values_.LoadLibs != 0);
    libraries_->ShowValues(values_);
    readCalls_->setChecked(values_.ReadCalls != 0);
    refreshAuto_->setChecked(values_.RefreshAuto != 0);
    procVars_->setChecked(values_.ProcVars != 0);
    askAtClosing_->setChecked(values_.AskAtClosing != 0);
    FillCodePages();
    showing_ = false;
}

void GeneralPage::TakeValues() {
    if (showing_)
        return;
    values_.Language = optLanguage_[1]->isChecked() ? "german" : "english";
    values_.Win32 = optWin32_[0]->isChecked() ? 1 : 0;
    values_.LoadLibs = loadLibs_->isChecked() ? 1 : 0;
    libraries_->TakeValues(values_);
    values_.ReadCalls = readCalls_->isChecked() ? 1 : 0;
    values_.RefreshAuto = refreshAuto_->isChecked() ? 1 : 0;
    values_.ProcVars = procVars_->isChecked() ? 1 : 0;
    values_.AskAtClosing = askAtClosing_->isChecked() ? 1 : 0;
    values_.CodePage = codePage_->currentData().toString().toStdString();
    Q_EMIT Changed();
}

VisualPage::VisualPage(Settings& values, QWidget* parent)
    : QWidget(parent), values_(values), colourFrame_(new QGroupBox), fontFrame_(new QGroupBox) {
    BuildColours();
    BuildFonts();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(colourFrame_);
    layout->addWidget(fontFrame_);
    layout->addStretch();
}

void VisualPage::BuildColours() {
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
        const int rows = (static_cast<int>(kColours) + 1) / 2;
        const int row = static_cast<int>(nr) % rows;
        const int column = static_cast<int>(nr) / rows * 3;
        grid->addWidget(button, row, column);
        grid->addWidget(label, row, column + 1);
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(2, 20);
    grid->setColumnStretch(4, 1);
}

void VisualPage::BuildFonts() {
    auto* fontGrid = new QGridLayout(fontFrame_);
    fontGrid->setColumnStretch(1, 1);
    fontGrid->setHorizontalSpacing(12);
    fonts_ = {FontRow{new QLabel, new QLabel, new QPushButton, &Settings::CodeFont,
                      QFontDatabase::systemFont(QFontDatabase::FixedFont)},
              FontRow{new QLabel, new QLabel, new QPushButton, &Settings::TreeFont, QApplication::font("QTreeView")}};
    for (std::size_t nr = 0; nr < fonts_.size(); ++nr) {
        FontRow& row = fonts_[nr];
        row.sample->setObjectName(QStringLiteral("fontSample%1").arg(nr));
        row.sample->setFrameShape(QFrame::StyledPanel);
        row.sample->setBackgroundRole(QPalette::Base);
        row.sample->setAutoFillBackground(true);
        row.sample->setMargin(4);
        // A large font is cut off in its sample, so that the window keeps its size.
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
}

void VisualPage::Texte() {
    Title(colourFrame_, TextNr(Text::Colours));
    Title(fontFrame_, TextNr(Text::Fonts));
    for (std::size_t nr = 0; nr < colours_.size(); ++nr) {
        const QString text = TextNr(kColourRows[nr].text);
        colourLabels_[nr]->setText(text);
        colours_[nr]->setAccessibleName(text);
        colours_[nr]->setToolTip(text + QStringLiteral(": ") + TextNr(Text::Choose));
    }
    const Text fontTexts[] = {Text::Code, Text::Trees};
    for (std::size_t nr = 0; nr < fonts_.size(); ++nr) {
        fonts_[nr].title->setText(TextNr(fontTexts[nr]));
        fonts_[nr].choose->setText(TextNr(Text::Choose));
        fonts_[nr].choose->setAccessibleName(TextNr(fontTexts[nr]) + QStringLiteral(": ") + TextNr(Text::Choose));
    }
}

void VisualPage::ShowValues() {
    for (std::size_t nr = 0; nr < colours_.size(); ++nr)
        ShowColour(nr);
    for (const FontRow& row : fonts_)
        ShowFont(row);
}

void VisualPage::ShowColour(std::size_t nr) {
    QToolButton& button = *colours_[nr];
    const QColor colour = ColourFromBgr(values_.*kColourRows[nr].colour);
    const QSize size = button.iconSize();
    QPixmap swatch(size * devicePixelRatioF());
    swatch.setDevicePixelRatio(devicePixelRatioF());
    swatch.fill(colour);
    QPainter painter(&swatch);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    painter.end();
    button.setIcon(swatch);
    button.setAccessibleDescription(colour.name());
}

void VisualPage::ShowFont(const FontRow& row) {
    const FontSetting& font = values_.*row.font;
    row.sample->setFont(FontFromSetting(font, row.fallback));
    row.sample->setText(ToQString(font.name) + QLatin1Char(' ') + QString::number(static_cast<double>(font.size)));
    row.sample->setToolTip(row.sample->text());
}

void VisualPage::ChooseColour(std::size_t nr) {
    std::int32_t& colour = values_.*kColourRows[nr].colour;
    const QColor chosen = QColorDialog::getColor(ColourFromBgr(colour), this, TextNr(kColourRows[nr].text));
    if (!chosen.isValid())
        return;
    colour = ToBgr(chosen);
    ShowColour(nr);
    Q_EMIT Changed();
}

void VisualPage::ChooseFont(const FontRow& row) {
    bool accepted = false;
    FontSetting& font = values_.*row.font;
    const QFont chosen = QFontDialog::getFont(&accepted, FontFromSetting(font, row.fallback), this, row.title->text());
    if (!accepted)
        return;
    font = {static_cast<float>(chosen.pointSizeF()), FromQString(chosen.family()), chosen.bold(), chosen.italic()};
    ShowFont(row);
    Q_EMIT Changed();
}

ReportsPage::ReportsPage(QWidget* parent) : QWidget(parent), frame_(new QGroupBox) {
    auto* layout = new QVBoxLayout(this);
    auto* column = new QVBoxLayout(frame_);
    auto* buttons = new QVBoxLayout;
    auto* left = new QHBoxLayout;
    left->addLayout(buttons);
    left->addStretch();
    column->addLayout(left);
    reports_ = {new QPushButton, new QPushButton, new QPushButton};
    const char* const names[] = {"cmdReportStructure", "cmdReportCalls", "cmdReportDeaths"};
    void (ReportsPage::*const signals_[])() = {&ReportsPage::ReportStructure, &ReportsPage::ReportCalls,
                                               &ReportsPage::ReportDeaths};
    for (std::size_t nr = 0; nr < reports_.size(); ++nr) {
        reports_[nr]->setObjectName(QLatin1String(names[nr]));
        reports_[nr]->setAutoDefault(false);
        buttons->addWidget(reports_[nr]);
        connect(reports_[nr], &QPushButton::clicked, this, signals_[nr]);
    }
    result_ = Note();
    result_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(result_);
    layout->addWidget(frame_);
    layout->addStretch();
}

void ReportsPage::Texte() {
    Title(frame_, TextNr(Text::Reports));
    constexpr Text names[] = {Text::StructureReports, Text::CallsReports, Text::DeathsReport};
    for (std::size_t nr = 0; nr < reports_.size(); ++nr)
        reports_[nr]->setText(TextNr(names[nr]) + QChar(0x2026));
    for (QPushButton* report : reports_)
        report->setToolTip(report->isEnabled() ? QString() : TextNr(Text::OpenProjectFirst));
}

void ReportsPage::SetProjectOpen(bool open) {
    for (QPushButton* report : reports_)
        report->setEnabled(open);
}

void ReportsPage::ShowResult(const QString& text) {
    result_->setText(text);
}

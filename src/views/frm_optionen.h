// The options window. It edits a copy of the settings, which comes into force with OK or Apply.
#pragma once

#include <QDialog>
#include <array>
#include <string>

#include "display/option_values.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QToolButton;

class frmOptionen final : public QDialog {
    Q_OBJECT
public:
    /// All three must outlive the window. `settings` is the one that the whole program writes with.
    /// @param programDirectory  where the language files lie; ends with its separator
    frmOptionen(Files& files, SettingsFile& settings, std::string programDirectory, QWidget* parent = nullptr);

    /// Puts the texts of the language on.
    void Texte();
    /// A line below the report buttons: where the reports were written.
    void ShowReportResult(const QString& text);

Q_SIGNALS:
    /// All settings are in force: fonts, colours and the tree are to be shown anew.
    void Applied();
    /// Comes before Applied, when the texts were read in another language.
    void LanguageChanged();
    // The three report buttons.
    void ReportStructure();
    void ReportCalls();
    void ReportDeaths();

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct FontRow {
        QLabel* title;
        QLabel* sample;
        QPushButton* choose;
        FontSetting OptionValues::*font;
    };

    [[nodiscard]] QWidget* GeneralPage();
    [[nodiscard]] QWidget* VisualPage();
    [[nodiscard]] QWidget* ReportsPage();
    void FillCodePages();
    void ShowValues();
    void TakeValues();
    void ShowColour(std::size_t nr);
    void ShowFont(const FontRow& row);
    void ChooseColour(std::size_t nr);
    void ChooseFont(const FontRow& row);
    void Apply();

    Files& files_;
    SettingsFile& settings_;
    std::string programDirectory_;
    OptionValues values_;
    bool showing_ = false;

    QTabWidget* tabs_;
    QGroupBox *languageFrame_, *win32Frame_, *readFrame_, *colourFrame_, *fontFrame_, *reportFrame_;
    std::array<QRadioButton*, 2> optLanguage_, optWin32_;
    QCheckBox *loadLibs_, *procVars_;
    QLabel* codePageLabel_;
    QComboBox* codePage_;
    QLabel* note_;
    std::array<QToolButton*, OptionValues::Further> colours_;
    std::array<QLabel*, OptionValues::Further> colourLabels_;
    std::array<FontRow, 2> fonts_;
    std::array<QPushButton*, 3> reports_;
    QLabel* reportResult_;
    QPushButton *cmdDefaults_, *cmdOK_, *cmdCancel_, *cmdApply_;
};

// The options window. It edits a copy of the settings, which comes into force with OK or Apply.
#pragma once

#include <QDialog>
#include <string>

#include "shell/settings.h"

class Files;
class GeneralPage;
class QPushButton;
class QTabWidget;
class ReportsPage;
class SettingsFile;
class VisualPage;

class frmOptionen final : public QDialog {
    Q_OBJECT
public:
    /// The first three must outlive the window.
    /// @param file              the one that the whole program writes with
    /// @param settings          those in force
    /// @param programDirectory  where the language files lie; ends with its separator
    frmOptionen(Files& files, SettingsFile& file, Settings& settings, std::string programDirectory,
                QWidget* parent = nullptr);

    /// Sets the texts of the language.
    void Texte();
    /// A line below the report buttons: where the reports were written.
    void ShowReportResult(const QString& text);

Q_SIGNALS:
    /// The settings were applied: fonts, colours and the tree need to be shown again.
    void Applied();
    /// Comes before Applied if the language has changed and its texts were read.
    void LanguageChanged();
    // The three report buttons.
    void ReportStructure();
    void ReportCalls();
    void ReportDeaths();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ShowValues();
    void ShowWhetherChanged();
    void Apply();

    Files& files_;
    SettingsFile& file_;
    Settings& settings_;
    std::string programDirectory_;
    Settings values_;
    QTabWidget* tabs_;
    GeneralPage* general_;
    VisualPage* visual_;
    ReportsPage* reports_;
    QPushButton *cmdDefaults_, *cmdOK_, *cmdCancel_, *cmdApply_;
};

// Asks before reports are written: says how many files go where, and offers another folder.
#pragma once

#include <QDialog>
#include <optional>
#include <string>

#include "findings/report_files.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class SettingsFile;
class clsProjekt;

class frmReports final : public QDialog {
    Q_OBJECT

public:
    /// `file`, which keeps the folder chosen last, must outlive the dialog.
    explicit frmReports(SettingsFile& file, QWidget* parent = nullptr);

    /// The folder in which to write, empty for the places beside the sources; nothing if the user cancels.
    [[nodiscard]] std::optional<std::string> Ask(const clsProjekt& projekt, ReportKind kind);

private:
    void Texte();
    void Build();
    void ChooseFolder();
    void ShowPlan();
    [[nodiscard]] std::string Folder() const;
    [[nodiscard]] QString PlanText(const ReportPlan& plan) const;

    SettingsFile& file_;
    const clsProjekt* projekt_ = nullptr;
    ReportKind kind_ = ReportKind::Structure;
    QRadioButton *beside_, *inFolder_;
    QLineEdit* folder_;
    QPushButton *choose_, *write_, *cancel_;
    QLabel *plan_, *note_;
};

// The error window: shows what happened, in which file, and what the user can do: ignore the error, or end the program
// immediately.
#pragma once

#include <QDialog>
#include <functional>
#include <set>
#include <string>

#include "shell/errors.h"

class ElidedLabel;
class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

class frmError final : public QDialog {
    Q_OBJECT
public:
    /// @param supportAddress  recipient of mails; the mail label is hidden if this is empty
    explicit frmError(QWidget* parent = nullptr, const QString& supportAddress = SupportAddress());

    /// Beeps, shows a report and waits for the answer. Returns at once for an ignored kind of error, and for a report
    /// that arrives while another one is shown.
    void ShowReport(const ErrorReport& report);
    /// Shows all kinds of errors again; called when another project is opened.
    void ForgetIgnored();
    /// Sets the texts of the current language, or English texts if a text is missing.
    void Texte();

    std::string Tag;                   // the last answer: "ignore" or "end"
    std::function<void()> EndProcess;  // ends the process without clean-up

protected:
    void reject() override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] static QString SupportAddress();
    void Ignore();
    void End();
    void Mail();
    void ShowHeading();

    QLabel* heading_;
    ElidedLabel* subject_;
    QLabel* advice_;
    QLabel* details_;
    QPlainTextEdit* txtError_;
    QPushButton* cmdCopy_;
    QCheckBox* forAll_;
    QLabel* labMailTo_;
    QLabel* labMail_;
    QPushButton* cmdIgnore_;
    QPushButton* cmdBeenden_;

    QString address_;
    ErrorReport report_;
    std::set<std::string, std::less<>> ignored_;
};

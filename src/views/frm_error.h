// The error window: says what happened, to which file, and what one can do. It can be passed over or the program
// ended, which happens at once.
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
    /// @param supportAddress  where mails go; the label for them is left out when it is empty
    explicit frmError(QWidget* parent = nullptr, const QString& supportAddress = SupportAddress());

    /// Shows a report with a beep and waits for the answer. Returns at once for a kind that is ignored, and for a
    /// report that comes while another one is shown.
    void ShowReport(const ErrorReport& report);
    /// From now on all kinds are shown again: another project is opened.
    void ForgetIgnored();
    /// Puts the texts of the language on, or English words where there are none.
    void Texte();

    std::string Tag;                   // "ignore" or "end", the answer given last
    std::function<void()> EndProcess;  // ends the process without any clean-up

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

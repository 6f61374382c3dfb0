// The progress window: the one runner of long operations. While an operation runs, all other windows take no input but
// continue to paint.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <functional>
#include <string>

#include "shell/operations.h"

class ElidedLabel;
class QLabel;
class QProgressBar;
class QPushButton;

class frmProgress final : public QDialog, public Progress {
    Q_OBJECT
public:
    explicit frmProgress(QWidget* parent = nullptr);

    /// Sets gAction, runs the operation and returns when it has ended. The window appears if that takes longer than
    /// `showAfter`; until then no input reaches any window either. A nested call only runs its operation.
    /// @return false if the operation was cancelled
    bool Run(const std::string& action, const std::function<void()>& operation);
    [[nodiscard]] bool IsRunning() const { return running_; }

    /// Whether the next operation, or the one that runs, can be cancelled. Reset to true after each operation.
    void SetCancelVisible(bool visible);
    /// Sets the texts of the language.
    void Texte();

    std::string Tag;      // "exit" once the operation has returned
    int showAfter = 300;  // milliseconds

    // Calls of the operation. Nothing is painted before the next turn of the event pump.
    void Caption(std::string_view text) override;
    /// The first label after a caption is the heading, such as "Reading the calls"; later ones name the current module.
    void Label(std::string_view text) override;
    void Range(int min, int max) override;
    void Progressiere_mal() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    void Pump();
    void ShowState();
    void AskCancel();
    [[nodiscard]] bool IsNearlyDone() const;
    void Reset();

    QLabel* heading_;
    ElidedLabel* detail_;
    QLabel* count_;
    QProgressBar* bar_;
    QPushButton* cmdCancel_;

    QElapsedTimer elapsed_;
    std::string caption_, stage_, object_;
    bool stageIsNext_ = true;
    int min_ = 0, max_ = 0, value_ = 0;
    bool running_ = false;
    bool asking_ = false;
    bool cancelled_ = false;
};

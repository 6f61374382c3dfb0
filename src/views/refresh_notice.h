// Notices that files of the project have changed on disk and says so in a bar, from which they are read again; then
// says in the same bar what that has changed. Nothing is read by itself unless the settings say so.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <vector>

#include "display/workspace.h"
#include "project/refresh.h"

class FileWatch;
class QWidget;
class RemarkLine;

class RefreshNotice final : public QObject {
    Q_OBJECT

public:
    /// What the window does for it.
    struct Ports {
        /// Reads again what has changed. A user who has not asked for it is not interrupted.
        std::function<Workspace::Refreshed(bool isAsked)> refresh;
        std::function<bool()> isBusy;  // an operation runs or a dialog is open
        std::function<void()> showList;
        std::function<void(const QString&)> message;
    };
    RefreshNotice(const Settings& settings, QWidget* window, Ports ports);

    [[nodiscard]] QWidget& Bar() const;
    /// A project has been opened or closed.
    void ProjectChanged();
    /// Looks at the files and says what has changed.
    void Look();
    /// The user asks for a refresh. Waits for files that are being written, but not for long.
    void Refresh();
    /// What the last refresh has changed.
    [[nodiscard]] const RefreshChanges& Changes() const { return changes_; }
    void Texte();

private:
    enum class Says : std::uint8_t { Nothing, FilesChanged, WhatChanged };
    void RefreshSoon();
    void Run(bool isAsked);
    void Show(Says what, const QString& text);
    [[nodiscard]] bool IsKnown(const ChangedFiles& changed) const;

    const Settings& settings_;
    QWidget* window_;
    Ports ports_;
    RemarkLine* bar_;
    FileWatch* watch_;
    Says says_ = Says::Nothing;
    ChangedFiles noticed_;
    std::vector<ChangedFile> dismissed_;  // what the user knows already
    RefreshChanges changes_;
    QElapsedTimer waiting_;  // for files that are being written; invalid while not
};

#include "views/refresh_notice.h"

#include <QTimer>
#include <QWidget>
#include <algorithm>

#include "model/clsProjekt.h"
#include "project/start.h"
#include "views/file_watch.h"
#include "views/refresh_texts.h"
#include "views/remark_line.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kLongestWait = 5000;
constexpr int kWaitStep = 200;
constexpr int kSettled = 1100;  // a file that was just written is looked at again

}  // namespace

RefreshNotice::RefreshNotice(const Settings& settings, QWidget* window, Ports ports)
    : QObject(window),
      settings_(settings),
      window_(window),
      ports_(std::move(ports)),
      bar_(new RemarkLine(QStringLiteral("FilesChanged"), window)),
      watch_(new FileWatch(this)) {
    connect(watch_, &FileWatch::MayHaveChanged, this, &RefreshNotice::Look);
    connect(bar_, &RemarkLine::Clicked, this, [this] { says_ == Says::FilesChanged ? Refresh() : ports_.showList(); });
    connect(bar_, &RemarkLine::Dismissed, this, [this] {
        if (says_ == Says::FilesChanged)
            dismissed_ = noticed_.files;
        Show(Says::Nothing, {});
    });
}

QWidget& RefreshNotice::Bar() const {
    return *bar_;
}

void RefreshNotice::Show(Says what, const QString& text) {
    says_ = text.isEmpty() ? Says::Nothing : what;
    bar_->SetButtonText(TextNr(says_ == Says::FilesChanged ? Text::RefreshShort : Text::ShowChangeList));
    bar_->Show(text);
}

void RefreshNotice::Texte() {
    bar_->SetDismissText(TextNr(Text::Dismiss));
    if (says_ != Says::Nothing)
        Show(says_, says_ == Says::FilesChanged ? NoticeOf(*gProjekt, noticed_) : SummaryOf(changes_));
}

void RefreshNotice::ProjectChanged() {
    changes_ = {};
    noticed_ = {};
    dismissed_.clear();
    waiting_.invalidate();
    watch_->Follow(gProjekt.get());
    Show(Says::Nothing, {});
}

// By path and date: that a file has settled is no news.
bool RefreshNotice::IsKnown(const ChangedFiles& changed) const {
    return std::ranges::all_of(changed.files, [this](const ChangedFile& file) {
        return std::ranges::any_of(dismissed_, [&file](const ChangedFile& known) {
            return known.path == file.path && known.date == file.date;
        });
    });
}

void RefreshNotice::Look() {
    if (!gProjekt || !window_->isVisible() || window_->isMinimized() || waiting_.isValid())
        return;
    QElapsedTimer time;
    time.start();
    noticed_ = ::Files_Check(*gProjekt);
    watch_->TookMilliseconds(time.elapsed());
    if (IsKnown(noticed_)) {
        if (says_ == Says::FilesChanged)
            Show(Says::Nothing, {});
        return;
    }
    if (noticed_.Has(FileChange::BeingWritten))
        watch_->AskLater(kSettled);
    const QString text = NoticeOf(*gProjekt, noticed_);
    if (text.isEmpty())
        return;
    if (settings_.RefreshAuto == 0)
        Show(Says::FilesChanged, text);
    else if (ports_.isBusy() || noticed_.Has(FileChange::BeingWritten))
        watch_->AskLater(kSettled);
    else
        Run(false);
}

void RefreshNotice::Refresh() {
    if (!gProjekt)
        return;
    if (ports_.isBusy()) {
        if (waiting_.isValid())
            RefreshSoon();
        return;
    }
    const ChangedFiles changed = ::Files_Check(*gProjekt);
    if (!changed.Has(FileChange::BeingWritten) || (waiting_.isValid() && waiting_.hasExpired(kLongestWait))) {
        waiting_.invalidate();
        Run(true);
        if (const QString left = StillWritten(changed); !left.isEmpty())
            ports_.message(TextNr(Text::FilesStillWritten, left));
        return;
    }
    if (!waiting_.isValid())
        waiting_.start();
    ports_.message(TextNr(Text::WaitingForFiles));
    RefreshSoon();
}

// Unless the project goes before.
void RefreshNotice::RefreshSoon() {
    QTimer::singleShot(kWaitStep, this, [this] {
        if (waiting_.isValid())
            Refresh();
    });
}

void RefreshNotice::Run(bool isAsked) {
    Show(Says::Nothing, {});
    Workspace::Refreshed refreshed = ports_.refresh(isAsked);
    if (refreshed.outcome != Workspace::Refreshed::Outcome::NothingChanged)
        changes_ = std::move(refreshed.changes);
    watch_->Follow(gProjekt.get());
    // What could not be read now has been said; it is said again when its file changes once more.
    dismissed_ = gProjekt ? ::Files_Check(*gProjekt).files : std::vector<ChangedFile>();
    std::erase_if(dismissed_, [](const ChangedFile& file) { return file.what == FileChange::BeingWritten; });
    if (refreshed.outcome != Workspace::Refreshed::Outcome::NothingChanged)
        Show(Says::WhatChanged, SummaryOf(changes_));
}

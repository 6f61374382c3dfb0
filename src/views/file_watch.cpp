#include "views/file_watch.h"

#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QSet>

#include "model/clsProjekt.h"
#include "platform/files.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kRestMilliseconds = 300;
constexpr int kClockMilliseconds = 2500;
constexpr int kLongestLook = 25;

}  // namespace

FileWatch::FileWatch(QObject* parent) : QObject(parent), watcher_(new QFileSystemWatcher(this)) {
    rest_.setSingleShot(true);
    clock_.setInterval(kClockMilliseconds);
    connect(watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { AskLater(kRestMilliseconds); });
    connect(&rest_, &QTimer::timeout, this, &FileWatch::MayHaveChanged);
    connect(&clock_, &QTimer::timeout, this, &FileWatch::MayHaveChanged);
}

void FileWatch::Follow(const clsProjekt* projekt) {
    QSet<QString> directories;
    const auto add = [&](const std::string& path) {
        directories.insert(QFileInfo(ToPath(projekt->TheFiles().SystemPath(path))).absolutePath());
    };
    if (projekt) {
        add(projekt->FullPath);
        for (const auto& modul : projekt->OwnedModules())
            add(modul->FullPath);
    }
    const QStringList before = watcher_->directories();
    const QSet<QString> watched(before.begin(), before.end());
    if (const QSet<QString> gone = watched - directories; !gone.isEmpty())
        watcher_->removePaths(gone.values());
    if (const QSet<QString> added = directories - watched; !added.isEmpty())
        watcher_->addPaths(added.values());
    rest_.stop();
    projekt ? clock_.start() : clock_.stop();
}

void FileWatch::AskLater(int milliseconds) {
    rest_.start(milliseconds);
}

void FileWatch::TookMilliseconds(qint64 milliseconds) {
    if (milliseconds > kLongestLook)
        clock_.stop();
}

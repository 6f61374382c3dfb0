// Says that files of the project may have changed. It watches the directories of the files, of which even large
// projects have few. Not every system reports that a file was written in place, so the files are looked at now and then
// as well.
#pragma once

#include <QObject>
#include <QTimer>

class QFileSystemWatcher;
class clsProjekt;

class FileWatch final : public QObject {
    Q_OBJECT

public:
    explicit FileWatch(QObject* parent);

    /// Watches the files of that project, or none.
    void Follow(const clsProjekt* projekt);
    /// Asks again after a while, once.
    void AskLater(int milliseconds);
    /// How long looking at all files took. Where that is long, as on a slow network, it is not done by the clock.
    void TookMilliseconds(qint64 milliseconds);

Q_SIGNALS:
    void MayHaveChanged();

private:
    QFileSystemWatcher* watcher_;
    QTimer rest_;  // several reports of one change are one
    QTimer clock_;
};

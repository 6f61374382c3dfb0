#include "views/file_drops.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include "widgets/qt_text.h"

namespace {

// The project or diagram that is dragged, or an empty text.
QString DroppedFile(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    if (urls.size() != 1 || !urls.front().isLocalFile())
        return {};
    const QString path = urls.front().toLocalFile();
    const bool fits = path.endsWith(QStringLiteral(".vbp"), Qt::CaseInsensitive) ||
                      path.endsWith(QStringLiteral(".ovg"), Qt::CaseInsensitive);
    return fits ? path : QString();
}

}  // namespace

FileDrops::FileDrops(QWidget* window) : QObject(window) {
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    auto* drop = static_cast<QDropEvent*>(event);  // that of entering is one, too
    const QString path = DroppedFile(drop->mimeData());
    if (path.isEmpty()) {
        drop->ignore();
        return true;
    }
    drop->acceptProposedAction();
    // After the drop: the source of the drag, often a file manager, is blocked until this function returns.
    if (event->type() == QEvent::Drop)
        QMetaObject::invokeMethod(
            this, [this, path] { Q_EMIT Dropped(FromPath(path)); }, Qt::QueuedConnection);
    return true;
}

#include "views/open_document.h"

#include <QCursor>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QUrl>

namespace {

bool OpenUrl(const QUrl& url) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const bool opened = QDesktopServices::openUrl(url);
    QGuiApplication::restoreOverrideCursor();
    return opened;
}

}  // namespace

bool OpenDocument(const QString& target) {
    return OpenUrl(QFileInfo::exists(target) ? QUrl::fromLocalFile(target) : QUrl(target));
}

QString AddMailParameter(const QString& query, const QString& name, const QString& value) {
    if (value.isEmpty())
        return query;
    return query + QLatin1Char(query.isEmpty() ? '?' : '&') + name + QLatin1Char('=') +
           QString::fromLatin1(QUrl::toPercentEncoding(value));
}

bool OpenMail(const QString& address, const QString& subject, const QString& body) {
    QString query = AddMailParameter(QString(), QStringLiteral("subject"), subject);
    query = AddMailParameter(query, QStringLiteral("body"), body);
    return OpenUrl(QUrl(QStringLiteral("mailto:") + address + query));
}

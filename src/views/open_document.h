// Files, pages and mails that the system's own programs open.
#pragma once

#include <QString>

/// Opens a file or a page. False when the system knows no program for it.
bool OpenDocument(const QString& target);
/// Opens a mail that is ready to be sent. Empty parts are left out.
bool OpenMail(const QString& address, const QString& subject, const QString& body);

/// `query` with one more parameter of a mail, joined by "?" or "&"; unchanged when `value` is empty.
[[nodiscard]] QString AddMailParameter(const QString& query, const QString& name, const QString& value);

// Opens files, web pages and mails with the system's default programs.
#pragma once

#include <QString>

/// Opens a file or web page. Returns false if the system has no program for it.
bool OpenDocument(const QString& target);
/// Opens a new mail for the user to send. Empty parts are omitted.
bool OpenMail(const QString& address, const QString& subject, const QString& body);

/// Appends a parameter to the query of a mail address, separated by "?" or "&"; returns `query` if `value` is empty.
[[nodiscard]] QString AddMailParameter(const QString& query, const QString& name, const QString& value);

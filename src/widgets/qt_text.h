// Conversion of the program's texts to those of the window, and back; all views use these functions.
#pragma once

#include <QDate>
#include <QLocale>
#include <QString>
#include <optional>
#include <string>
#include <string_view>

#include "shell/text_numbers.h"

/// Bytes in the active code page, as in sources, names and paths of a project.
[[nodiscard]] QString ToQString(std::string_view bytes);
/// Text from the user in the active code page; characters that it lacks become "?".
[[nodiscard]] std::string FromQString(const QString& text);
/// A text of the language files, which are Windows-1252 whatever the code page of the sources is.
[[nodiscard]] QString TextNr(Text text);
/// The same with what belongs in the place of its "%1", "%2" and "%3".
[[nodiscard]] QString TextNr(Text text, const QString& first, const QString& second = {}, const QString& third = {});
/// A text of the language files that comes through a port.
[[nodiscard]] QString LanguageText(std::string_view bytes);

/// Writes numbers and dates as the language of the program does.
[[nodiscard]] QLocale OwnLocale();
/// A number with the separators of the program's language.
[[nodiscard]] QString NumberText(qlonglong number);

/// A caption and how many it stands for: "Called by (132)"; the caption alone while that is not known.
[[nodiscard]] QString WithCount(const QString& caption, std::optional<int> count);

/// A part of a whole with one decimal: "4.3%"; empty for a whole of 0.
[[nodiscard]] QString ShareText(qlonglong part, qlonglong whole);

/// A day as the program's language writes it.
[[nodiscard]] QString DateText(const QDate& date);

/// A path of the program as Qt has it, and back: the bytes of the file system.
[[nodiscard]] QString ToPath(std::string_view path);
[[nodiscard]] std::string FromPath(const QString& path);

/// Loads the library's own texts, as of file dialogs, in the language of the program, where the system has them.
void SpeakOwnLanguage();

// Mnemonics (underlined letters) of menus and dialogs.
#pragma once

#include <QStringList>
#include <set>

/// Returns the texts with "&" before a different letter each, as far as letters are available. Earlier texts and first
/// letters of words are preferred unless that leaves another text without a letter. Existing "&" are removed.
/// @param taken  in and out: lower-case letters in use; the assigned letters are added
[[nodiscard]] QStringList WithLetters(QStringList texts, std::set<QChar>& taken);

// The underlined letters of menus and dialogs.
#pragma once

#include <QStringList>
#include <set>

/// The texts with "&" before a letter of its own each, as far as there are letters: first letters of words where that
/// leaves one for the others, earlier texts first. Marks of an earlier round are taken out.
/// @param taken  letters in lower case that stand elsewhere; those given come in
[[nodiscard]] QStringList WithLetters(QStringList texts, std::set<QChar>& taken);

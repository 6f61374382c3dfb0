// Assigning letters to texts is a matching problem. Giving each text its first free letter would leave long menus with
// items without a letter, so a later text may move an earlier one to another letter. All texts first try the letters
// that begin words; those that got none then try any letter.
#include "views/mnemonics.h"

#include <functional>
#include <map>
#include <vector>

namespace {

enum class Wish { WordBegins, AnyLetter };

// Places of letters in the order of preference.
std::vector<qsizetype> Places(const QString& text, const std::set<QChar>& taken, Wish wish) {
    std::vector<qsizetype> begins, others;
    for (qsizetype at = 0; at < text.size(); ++at)
        if (text[at].isLetterOrNumber() && !taken.contains(text[at].toLower()))
            (at == 0 || text[at - 1].isSpace() ? begins : others).push_back(at);
    if (wish == Wish::AnyLetter)
        begins.insert(begins.end(), others.begin(), others.end());
    return begins;
}

}  // namespace

QStringList WithLetters(QStringList texts, std::set<QChar>& taken) {
    for (QString& text : texts)
        text.remove(QLatin1Char('&'));
    const std::set<QChar> elsewhere = taken;
    std::map<QChar, qsizetype> owners;
    std::vector<qsizetype> chosen(static_cast<std::size_t>(texts.size()), -1);
    const auto placeOf = [&chosen](qsizetype text) -> qsizetype& { return chosen[static_cast<std::size_t>(text)]; };
    for (const Wish wish : {Wish::WordBegins, Wish::AnyLetter}) {
        std::set<QChar> tried;
        const std::function<bool(qsizetype)> give = [&](qsizetype text) {
            const std::vector<qsizetype> places = Places(texts[text], elsewhere, wish);
            // Takes free letters before it moves another text.
            for (const bool mayMove : {false, true})
                for (const qsizetype at : places) {
                    const QChar letter = texts[text][at].toLower();
                    if (owners.contains(letter)) {
                        if (!mayMove || tried.contains(letter))
                            continue;
                        tried.insert(letter);
                        if (!give(owners.at(letter)))
                            continue;
                    }
                    owners[letter] = text;
                    placeOf(text) = at;
                    return true;
                }
            return false;
        };
        for (qsizetype text = 0; text < texts.size(); ++text) {
            tried.clear();
            if (placeOf(text) < 0)
                give(text);
        }
    }
    for (qsizetype text = 0; text < texts.size(); ++text)
        if (const qsizetype at = placeOf(text); at >= 0) {
            taken.insert(texts[text][at].toLower());
            texts[text].insert(at, QLatin1Char('&'));
        }
    return texts;
}

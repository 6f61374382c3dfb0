#include "calls/module_names.h"

void ModuleNames::TurnTo(const clsModul& modul) {
    modul_ = &modul;
    ++stamp_;
    const NameSpace& own = modul.PrivNameSpace;
    own.PrefetchAll();
    for (int nr = 1; nr <= own.Count(); ++nr)
        own.KeyNr(nr).FetchAhead();
    for (int nr = 1; nr <= own.Count(); ++nr) {
        const clsSpaceName* bearers = own.ItemNr(nr);
        Prefetch(bearers);
        if (Line* const line = LineFor(own.KeyNr(nr))) {
            line->meaning.ownStamp_ = stamp_;
            line->meaning.own_ = bearers;
        }
    }
}

// The line that remembers a name from now on; null for a name that reads as a number.
ModuleNames::Line* ModuleNames::LineFor(Name name) {
    const std::string_view word = name.View();
    const Key key = KeyOf(word);
    Line& line = LineOf(key);
    if (line.meaning.name == name && line.length == word.size())
        return &line;
    if (word.empty() || IsNumeric(word))
        return nullptr;
    Enter(line, key, word.size(), name);
    return &line;
}

void ModuleNames::Enter(Line& line, Key key, std::size_t length, Name name) {
    line.head = key.head;
    line.tail = key.tail;
    line.length = length;
    line.meaning = {};
    line.meaning.name = name;
    line.meaning.keyword = KeywordOf(name);
}

void ModuleNames::Fill(Line& line, Key key, std::string_view word) {
    const bool isNumber = IsNumeric(word);
    Enter(line, key, word.size(), isNumber ? Name() : Name::Find(word));
    line.meaning.isNumber = isNumber;
}

#include "calls/module_names.h"

#include "model/clsProjekt.h"

ModuleNames::ModuleNames(const clsProjekt& projekt)
    : pool_(projekt.TheNames()), public_(projekt.PublicNameSpace()), tables_(std::make_unique<Tables>()) {}

void ModuleNames::TurnTo(const clsModul& modul) {
    modul_ = &modul;
    ++stamp_;
    passed_.words.clear();
    passed_.members.clear();
    const NameSpace& own = modul.PrivNameSpace;
    for (int nr = 1; nr <= own.Count(); ++nr) {
        Line* const line = LineFor(own.KeyNr(nr));
        if (!line)
            continue;
        line->meaning.ownStamp_ = stamp_;
        line->meaning.own_ = own.ItemNr(nr);
    }
}

// The line that remembers a name from now on; null for a name that reads as a number.
ModuleNames::Line* ModuleNames::LineFor(Name name) {
    const Key key = KeyOf(name.View());
    Line& line = LineOf(key);
    if (line.meaning.name == name && line.length == name.View().size())
        return &line;
    if (name.Empty() || IsNumeric(name.View()))
        return nullptr;
    Enter(line, key, name);
    return &line;
}

void ModuleNames::Enter(Line& line, Key key, Name name) {
    line.head = key.head;
    line.tail = key.tail;
    line.length = name.Known() ? name.View().size() : 0;
    line.meaning = {};
    line.meaning.name = name;
    line.meaning.keyword = KeywordOf(name);
}

void ModuleNames::Fill(Line& line, Key key, std::string_view word) const {
    const bool isNumber = IsNumeric(word);
    Enter(line, key, isNumber ? Name() : pool_.Find(word));
    line.length = word.size();
    line.meaning.isNumber = isNumber;
}

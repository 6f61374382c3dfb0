#include "calls/module_names.h"

#include "model/clsProjekt.h"

ModuleNames::ModuleNames(const clsProjekt& projekt)
    : pool_(projekt.TheNames()), public_(projekt.PublicNameSpace()), tables_(std::make_unique<Tables>()) {}

void ModuleNames::TurnTo(const clsModul& modul) {
    modul_ = &modul;
    ++stamp_;
    const NameSpace& own = modul.PrivNameSpace;
    for (int nr = 1; nr <= own.Count(); ++nr) {
        const Name name = own.KeyNr(nr);
        if (name.Empty() || IsNumeric(name.View()))
            continue;
        const Key key = KeyOf(name.View());
        Line& line = LineOf(key);
        if (line.meaning.name != name)
            Enter(line, key, name);
        line.meaning.ownStamp_ = stamp_;
        line.meaning.own_ = own.ItemNr(nr);
    }
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

#include "calls/module_names.h"

void ModuleNames::Fill(Line& line, Key key, std::string_view word) {
    line.head = key.head;
    line.tail = key.tail;
    line.length = word.size();
    line.meaning = {};
    line.meaning.isNumber = IsNumeric(word);
    if (line.meaning.isNumber)
        return;
    line.meaning.name = Name::Find(word);
    line.meaning.keyword = KeywordOf(line.meaning.name);
}

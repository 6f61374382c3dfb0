#include "source/char_map.h"

#include "source/comments.h"
#include "source/module_text.h"
#include "source/tokens.h"

void MakeCharMapAgain(ModuleText& text) {
    Comments_Initialisieren(text);
    Strings_Initialisieren(text);
    text.HideAgain();
    (void)Analyse_Parsen(text);
}

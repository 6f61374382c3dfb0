#include "calls/declaration_calls.h"

#include "calls/keywords.h"
#include "calls/module_names.h"
#include "calls/type_clause.h"
#include "structure/module_reader.h"

namespace {

bool IsArithmetic(std::string_view word) {
    return Is(word, "+") || Is(word, "-") || Is(word, "*") || Is(word, "/");
}

class DeclarationCalls {
public:
    DeclarationCalls(ModuleReader& reader, ModuleNames& names, FoundCalls& found)
        : reader_(reader),
          tokens_(reader.tokens),
          names_(names),
          found_(found),
          clause_(found, reader.modul, reader.modul, names) {}

    void Run(int& nr, int last) {
        for (; nr <= last; ++nr) {
            const std::string_view word = reader_.Word(nr);
            if (Is(word, "("))
                ++depth_;
            else if (Is(word, ")"))
                --depth_;
            else if (Is(word, "="))
                Constants(nr);
            else if (Is(word, "as"))
                Types(nr);
        }
    }

private:
    void Constant(int nr) {
        WordMeaning& meaning = names_.Of(reader_.Word(nr));
        CodeObject* object = modMain::Get_Objekt_AusName(names_, meaning, AccessMode::Read);
        if (object && object->Class() == ObjectClass::Variable && static_cast<clsVariable*>(object)->IsConst)
            found_.CallCreate(*object, reader_.modul, CallType::Really, tokens_.PosOf(nr));
    }

    // Reads the value after "=", up to the comma that ends it.
    void Constants(int& nr) {
        while (tokens_.ContinuesStatement(nr + 1)) {
            const std::string_view word = reader_.Word(++nr);
            if (Is(word, ","))
                return;
            if (!IsArithmetic(word) && !IsNumeric(word))
                Constant(nr);
        }
    }

    // Reads the rest of the statement after "as".
    void Types(int& nr) {
        clause_.Begin(depth_);
        bool eqSeen = false;
        while (tokens_.ContinuesStatement(nr + 1)) {
            const std::string_view word = reader_.Word(++nr);
            if (Is(word, "=")) {
                eqSeen = true;
                clause_.End();
            } else if (Is(word, ",") && depth_ == clause_.Depth()) {
                clause_.End();
                eqSeen = false;
            } else if (Is(word, "(")) {
                ++depth_;
            } else if (Is(word, ")")) {
                --depth_;
            } else if (Is(word, "as")) {
                clause_.Begin(depth_);
            } else if (!Is(word, "new") && !Is(word, ".")) {
                if (clause_.Active() && depth_ == clause_.Depth())
                    clause_.Part(names_.Of(word).name, tokens_.PosOf(nr));
                if (eqSeen && !IsArithmetic(word))
                    Constant(nr);
            }
        }
    }

    ModuleReader& reader_;
    const TokenTable& tokens_;
    ModuleNames& names_;
    FoundCalls& found_;
    TypeClause clause_;
    int depth_ = 0;  // bracket depth, counted over the whole section
};

}  // namespace

void Analyse_CallsVarBereich(ModuleReader& reader, ModuleNames& names, int& firstTok, int lastTok, FoundCalls& found) {
    DeclarationCalls(reader, names, found).Run(firstTok, lastTok);
}

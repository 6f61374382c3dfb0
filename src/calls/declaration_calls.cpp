#include "calls/declaration_calls.h"

#include "calls/keywords.h"
#include "calls/type_clause.h"
#include "structure/module_reader.h"

namespace {

bool IsArithmetic(std::string_view word) {
    return word == "+" || word == "-" || word == "*" || word == "/";
}

class DeclarationCalls {
public:
    explicit DeclarationCalls(ModuleReader& reader)
        : reader_(reader), tokens_(reader.tokens), clause_(reader.projekt, reader.modul, nullptr) {}

    void Run(int& nr, int last) {
        for (; nr <= last; ++nr) {
            const std::string_view word = reader_.Word(nr);
            if (word == "(")
                ++depth_;
            else if (word == ")")
                --depth_;
            else if (word == "=")
                Constants(nr);
            else if (word == "as")
                Types(nr);
        }
    }

private:
    void Constant(int nr) {
        const Name name = Name::Find(reader_.Word(nr));
        CodeObject* object = modMain::Get_Objekt_AusName(&reader_.modul, name, AccessMode::Read);
        if (object && object->Class() == ObjectClass::Variable && static_cast<clsVariable*>(object)->IsConst)
            CallCreateVarInDecl(reader_.projekt, *object, reader_.modul, CallType::Really, tokens_.PosOf(nr));
    }

    // The value behind "=", up to the comma that ends it.
    void Constants(int& nr) {
        while (tokens_.ContinuesStatement(nr + 1)) {
            const std::string_view word = reader_.Word(++nr);
            if (word == ",")
                return;
            if (!IsArithmetic(word) && !IsNumeric(word))
                Constant(nr);
        }
    }

    // The rest of the statement behind "as".
    void Types(int& nr) {
        clause_.Begin(depth_);
        bool eqSeen = false;
        while (tokens_.ContinuesStatement(nr + 1)) {
            const std::string_view word = reader_.Word(++nr);
            if (word == "=") {
                eqSeen = true;
                clause_.End();
            } else if (word == "," && depth_ == clause_.Depth()) {
                clause_.End();
                eqSeen = false;
            } else if (word == "(") {
                ++depth_;
            } else if (word == ")") {
                --depth_;
            } else if (word == "as") {
                clause_.Begin(depth_);
            } else if (word != "new" && word != ".") {
                if (clause_.Active() && depth_ == clause_.Depth())
                    clause_.Part(Name::Find(word), tokens_.PosOf(nr));
                if (eqSeen && !IsArithmetic(word))
                    Constant(nr);
            }
        }
    }

    ModuleReader& reader_;
    const TokenTable& tokens_;
    TypeClause clause_;
    int depth_ = 0;  // of the whole section
};

}  // namespace

void Analyse_CallsVarBereich(ModuleReader& reader, int& firstTok, int lastTok) {
    DeclarationCalls(reader).Run(firstTok, lastTok);
}

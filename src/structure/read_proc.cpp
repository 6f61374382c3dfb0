// The head gives kind, name and access, followed by the arguments up to the closing bracket and the result type. The
// body is searched for declarations and for the closing "End <kind>". All state of a pass is local to it.
#include "structure/read_proc.h"

#include <algorithm>
#include <span>

#include "structure/add_objects.h"
#include "structure/module_reader.h"
#include "structure/read_declare.h"

namespace {

class ProcReader {
public:
    ProcReader(ModuleReader& reader, int& tokNr) : reader_(reader), tokens_(reader.tokens), tokNr_(tokNr) {}

    void Read() {
        if (!ReadHead())
            return;
        const int behindHead = tokens_.LastOfStatement(tokNr_) + 1;
        ReadArguments(behindHead);
        if (isEvent_) {
            tokNr_ = behindHead - 1;
            proc_->DeclareEndTNr = tokNr_;
            proc_->DeclareEnd = tokens_.EndOf(tokNr_);
        } else {
            ReadBody(behindHead);
        }
        Finish();
    }

private:
    [[nodiscard]] std::string_view Word(int nr) const { return reader_.Word(nr); }

    bool ReadHead() {
        const std::string_view first = Word(tokNr_);
        const bool hasAccess = first == kPrivate || first == kPublic || Is(first, "global");
        kind_ = hasAccess ? Word(tokNr_ + 1) : first;
        const bool isProperty = kind_ == "property";
        nameNr_ = tokNr_ + 1 + hasAccess + isProperty;
        if (!reader_.Exists(nameNr_))
            return false;

        proc_ = &reader_.modul.Own(std::make_unique<clsProzedur>(reader_.modul));
        proc_->DeclareStart = tokens_.PosOf(tokNr_);
        proc_->DeclareStartTNr = tokNr_;
        proc_->Zugriff = first == kPrivate ? Access::Private : Access::Public;
        reader_.NameIt(*proc_, nameNr_);
        proc_->NamePos = tokens_.PosOf(nameNr_);
        isEvent_ = kind_ == "event";
        proc_->IsEvent = isEvent_;
        if (isProperty)
            ProzedurTyp_AusWort(*proc_, kind_, Word(nameNr_ - 1));
        else
            ProzedurTyp_AusWort(*proc_, isEvent_ ? "sub" : kind_);
        return true;
    }

    void ReadArguments(int behindHead) {
        int nr = nameNr_ + 1;
        if (!tokens_.ContinuesStatement(nr))
            return;
        if (const std::string_view sign = DatenTyp_AusZeichen(Word(nr)); !sign.empty()) {
            result_.Set(sign);
            ++nr;
        } else if (!Is(Word(nr), "(")) {
            return;
        }
        int depth = 0;
        for (; nr < behindHead; ++nr) {
            const std::string_view word = Word(nr);
            if (Is(word, "(")) {
                if (depth++ == 0)
                    proc_->ArgListStart = tokens_.PosOf(nr);
            } else if (Is(word, ")")) {
                if (depth > 0 && --depth == 0)
                    proc_->ArgListEnd = tokens_.PosOf(nr);
            } else if (Is(word, ",")) {
                continue;
            } else if (depth == 0) {
                for (; nr < behindHead; ++nr)
                    if (!Is(Word(nr), "as"))
                        result_.Append(Word(nr));
            } else if (depth == 1) {
                ReadArgument(nr, depth, behindHead);
            }
        }
    }

    // Reads one argument from its first word on; leaves `nr` on the "," or bracket that ends it.
    void ReadArgument(int& nr, int& depth, int behindHead) {
        clsVariable* argument = nullptr;
        TypeText type;
        bool asSeen = false;
        bool eqSeen = false;
        for (; nr < behindHead; ++nr) {
            const std::string_view word = Word(nr);
            if (Is(word, "(")) {
                ++depth;
            } else if (Is(word, ")")) {
                if (--depth == 0) {
                    proc_->ArgListEnd = tokens_.PosOf(nr);
                    break;
                }
            } else if (Is(word, ",")) {
                if (depth == 1)
                    break;
            } else if (eqSeen) {
                continue;
            } else if (Is(word, "=")) {
                eqSeen = true;
            } else if (Is(word, "as") && depth == 1) {
                asSeen = true;
            } else if (asSeen) {
                if (!Is(word, "new") && argument) {
                    type.Append(word);
                    argument->DeclareEnd = tokens_.EndOf(nr);
                }
            } else if (const std::string_view sign = DatenTyp_AusZeichen(word); !sign.empty()) {
                if (argument) {
                    type.Set(sign);
                    argument->DeclareEnd = tokens_.EndOf(nr);
                }
            } else if (!Is(word, "byval") && !Is(word, "byref") && !Is(word, "optional") && !Is(word, "paramarray")) {
                if (argument)
                    argument->type = type.AsName();
                type = {};
                argument = &NewVariable(nr, Access::Argument);
                proc_->MyVars.AddUnlessPresent(argument->NameKey(), argument);
            }
        }
        if (argument)
            argument->type = type.AsName();
    }

    // Visits only the landmarks: a declaration keyword begins declarations, and "end" before the kind's keyword ends
    // the body.
    void ReadBody(int behindHead) {
        const std::span<const int> landmarks = tokens_.Landmarks();
        int nr = behindHead;  // the next token to examine
        int closing = tokens_.Count();
        for (auto at = std::lower_bound(landmarks.begin(), landmarks.end(), behindHead - 1); at != landmarks.end();
             ++at) {
            if (Is(Word(*at), "end")) {
                if (*at + 1 >= nr && Word(*at + 1) == kind_) {
                    closing = *at + 1;
                    break;
                }
            } else if (*at >= nr) {
                nr = *at;
                ReadLocals(nr);
                ++nr;
            }
        }
        tokNr_ = closing;
        proc_->DeclareEndTNr = tokNr_;
        proc_->DeclareEnd = tokens_.EndOf(tokNr_);
    }

    // Reads the declarations after the keyword at `nr` and leaves `nr` on the last token of the statement.
    void ReadLocals(int& nr) {
        const std::string_view how = Word(nr);
        const bool isConst = Is(how, "const");
        clsVariable* variable = nullptr;
        TypeText type;
        int depth = 0;
        bool asSeen = false;
        bool eqSeen = false;
        bool expectName = true;
        while (tokens_.ContinuesStatement(nr + 1)) {
            const std::string_view word = Word(++nr);
            if (Is(word, "(")) {
                ++depth;
            } else if (Is(word, ")")) {
                --depth;
            } else if (Is(word, "preserve")) {
                continue;
            } else if (Is(word, "as") && depth == 0) {
                asSeen = true;
            } else if (Is(word, "=")) {
                eqSeen = true;
            } else if (Is(word, ",") && depth == 0) {
                // Deliberately resets only these two: after a constant's value `eqSeen` remains set, so that the next
                // name counts as a part of the value.
                asSeen = false;
                expectName = true;
            } else if (asSeen) {
                if (variable && !Is(word, "new") && !(isConst && eqSeen)) {
                    type.Append(word);
                    variable->DeclareEnd = tokens_.EndOf(nr);
                }
            } else if (eqSeen) {
                if (variable && type.Empty())
                    type.Append(word);  // a constant without a type gets its value as type
                else
                    eqSeen = false;
            } else if (depth == 0) {
                if (const std::string_view sign = DatenTyp_AusZeichen(word); !sign.empty() && variable) {
                    type.Set(sign);
                    variable->DeclareEnd = tokens_.EndOf(nr);
                } else if (expectName) {
                    if (variable)
                        variable->type = type.AsName();
                    type = {};
                    expectName = false;
                    variable = &NewVariable(nr, Access::Procedure);
                    variable->IsConst = isConst;
                    if (!Is(how, "redim") || !IsKnownArray(*variable))
                        proc_->MyVars.AddUnlessPresent(variable->NameKey(), variable);
                }
            }
        }
        if (variable)
            variable->type = type.AsName();
    }

    [[nodiscard]] bool IsKnownArray(const clsVariable& variable) const {
        return reader_.modul.MyVars.Contains(variable.NameKey()) || reader_.projekt.MyVars.Contains(variable.NameKey());
    }

    clsVariable& NewVariable(int nameNr, Access zugriff) {
        if (proc_->MyVars.Count() == 0)
            proc_->MyVars.Reserve(4);  // enough for most procedures
        clsVariable& variable = reader_.modul.NewLocal();
        variable.Modul = &reader_.modul;
        variable.Prozedur = proc_;
        variable.Zugriff = zugriff;
        reader_.NameIt(variable, nameNr);
        variable.DeclareStart = tokens_.PosOf(nameNr);
        return variable;
    }

    void Finish() {
        const Name variant("variant");
        for (clsVariable* variable : proc_->MyVars)
            if (variable->type.Empty())
                variable->type = variant;
        proc_->type = result_.AsName();
        // Only functions fall back to "variant": a Property Get without As keeps an empty type.
        if (proc_->ProzedurTyp == ProcKind::Function && proc_->type.Empty())
            proc_->type = variant;
        if (IsHandler(reader_.modul, *proc_))
            proc_->IsEvent = true;
        if (proc_->ProzedurTyp == ProcKind::Function || proc_->ProzedurTyp == ProcKind::PropertyGet) {
            // An assignment to the procedure's own name in its body resolves to this variable.
            clsVariable& result = NewVariable(nameNr_, Access::Argument);
            result.type = proc_->type;
            result.isResult = true;
            proc_->MyVars.AddUnlessPresent(result.NameKey(), &result);
        }
        Add_Proc(reader_, *proc_);
    }

    ModuleReader& reader_;
    const TokenTable& tokens_;
    int& tokNr_;
    int nameNr_ = 0;
    std::string_view kind_;
    bool isEvent_ = false;
    clsProzedur* proc_ = nullptr;
    TypeText result_;
};

}  // namespace

void Analyse_ReadProc(ModuleReader& reader, int& tokNr) {
    ProcReader(reader, tokNr).Read();
}

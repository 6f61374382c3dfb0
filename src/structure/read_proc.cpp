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
        const int afterHead = tokens_.LastOfStatement(tokNr_) + 1;
        ReadArguments(afterHead);
        if (isEvent_) {
            tokNr_ = afterHead - 1;
            proc_->DeclareEndTNr = tokNr_;
            proc_->DeclareEnd = tokens_.EndOf(tokNr_);
        } else {
            ReadBody(afterHead);
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

        proc_ = &reader_.modul.New<clsProzedur>();
        proc_->DeclareStart = tokens_.PosOf(tokNr_);
        proc_->DeclareStartTNr = tokNr_;
        proc_->Zugriff = first == kPrivate ? Access::Private : Access::Public;
        reader_.NameIt(*proc_, nameNr_);
        proc_->NamePos = tokens_.PosOf(nameNr_);
        isEvent_ = kind_ == "event";
        proc_->IsEvent = isEvent_;
        if (isProperty)
            ProzedurTyp_AusWort(reader_.names, *proc_, kind_, Word(nameNr_ - 1));
        else
            ProzedurTyp_AusWort(reader_.names, *proc_, isEvent_ ? "sub" : kind_);
        if (const std::string_view suffix = proc_->AccessorSuffix(); !suffix.empty())
            proc_->accessorKey = reader_.names.Intern(std::string(proc_->MyName()).append(suffix)).Lower();
        return true;
    }

    void ReadArguments(int afterHead) {
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
        for (; nr < afterHead; ++nr) {
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
                for (; nr < afterHead; ++nr)
                    if (!Is(Word(nr), "as"))
                        result_.Append(Word(nr));
            } else if (depth == 1) {
                ReadArgument(nr, depth, afterHead);
            }
        }
    }

    // Reads one argument from its first word on; leaves `nr` on the "," or bracket that ends it.
    void ReadArgument(int& nr, int& depth, int afterHead) {
        clsVariable* argument = nullptr;
        TypeText type;
        bool asSeen = false;
        bool eqSeen = false;
        for (; nr < afterHead; ++nr) {
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
                    argument->type = type.AsName(reader_.names);
                type = {};
                argument = &NewVariable(nr, Access::Argument);
                AddLocal(*argument);
            }
        }
        if (argument)
            argument->type = type.AsName(reader_.names);
    }

    // Visits only the landmarks: a declaration keyword begins declarations, and "end" before the kind's keyword ends
    // the body.
    void ReadBody(int afterHead) {
        const std::span<const int> landmarks = tokens_.Landmarks();
        int nr = afterHead;  // the next token to examine
        int closing = tokens_.Count();
        for (auto at = std::lower_bound(landmarks.begin(), landmarks.end(), afterHead - 1); at != landmarks.end();
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
                        variable->type = type.AsName(reader_.names);
                    type = {};
                    expectName = false;
                    variable = &NewVariable(nr, Access::Procedure);
                    variable->IsConst = isConst;
                    variable->isRedim = Is(how, "redim");
                    if (!variable->isRedim || !reader_.modul.MyVars.Contains(variable->NameKey()))
                        AddLocal(*variable);
                }
            }
        }
        if (variable)
            variable->type = type.AsName(reader_.names);
    }

    // From the first ReDim of a name that the module does not know, all that comes is kept: only when all modules are
    // read it shows which of them the procedure has.
    void AddLocal(clsVariable& variable) {
        if (variable.isRedim && !redim_) {
            redim_ = &reader_.modul.redims.emplace_back(
                clsModul::RedimLocals{proc_, std::pmr::vector<clsVariable*>(reader_.modul.Memory())});
            for (clsVariable* before : proc_->MyVars)
                redim_->candidates.push_back(before);
        }
        if (redim_)
            redim_->candidates.push_back(&variable);
        proc_->MyVars.AddUnlessPresent(variable.NameKey(), &variable);
    }

    clsVariable& NewVariable(int nameNr, Access zugriff) {
        if (proc_->MyVars.Count() == 0)
            proc_->MyVars.Reserve(4);  // enough for most procedures
        clsVariable& variable = reader_.modul.NewInner<clsVariable>();
        variable.Prozedur = proc_;
        variable.Zugriff = zugriff;
        reader_.NameIt(variable, nameNr);
        variable.DeclareStart = tokens_.PosOf(nameNr);
        return variable;
    }

    void Finish() {
        const Name variant = reader_.names.Intern("variant");
        const auto defaultType = [variant](const auto& variables) {
            for (clsVariable* variable : variables)
                if (variable->type.Empty())
                    variable->type = variant;
        };
        defaultType(proc_->MyVars);
        if (redim_)
            defaultType(redim_->candidates);
        proc_->type = result_.AsName(reader_.names);
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
            AddLocal(result);
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
    clsModul::RedimLocals* redim_ = nullptr;  // of this procedure, once it has such a ReDim
    TypeText result_;
};

}  // namespace

void Analyse_ReadProc(ModuleReader& reader, int& tokNr) {
    ProcReader(reader, tokNr).Read();
}

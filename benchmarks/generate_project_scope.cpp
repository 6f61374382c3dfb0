#include "generate_project_scope.h"

#include <algorithm>
#include <utility>

namespace generate {

namespace {

constexpr Type Long{TypeKind::Long, -1};
constexpr Type Integer{TypeKind::Integer, -1};
constexpr Type String{TypeKind::String, -1};
constexpr Type Boolean{TypeKind::Boolean, -1};
constexpr Type AnyVariant{TypeKind::Variant, -1};

constexpr int DeepestCall = 2;

constexpr std::array<std::string_view, 22> LocalWords = {
    "Text", "Temp",  "Result", "Name",  "Value", "Count", "Pos",   "Len",   "Line", "Msg", "Key",
    "Item", "Start", "End",    "Total", "Sum",   "Max",   "Index", "Found", "Ret",  "Old", "New"};

// A wanted type is met by a variable of that type, and a Long also by the smaller whole numbers.
bool Fits(Type wanted, Type offered) {
    return wanted == offered || (wanted.kind == TypeKind::Long && IsWholeNumber(offered)) ||
           (wanted.kind == TypeKind::Double && offered.kind == TypeKind::Currency);
}

}  // namespace

Scope::Scope(Plan& plan, int module, Procedure& procedure)
    : plan_(plan),
      random_(plan.random),
      position_(module),
      module_(plan.modules[static_cast<std::size_t>(module)]),
      procedure_(procedure) {
    for (const Parameter& parameter : procedure.parameters) {
        Variable variable;
        variable.name = parameter.name;
        variable.type = parameter.type;
        variable.isArray = parameter.isArray;
        variable.readOnly = parameter.isArray;
        variable.isFixed = parameter.isArray;
        names_.insert(Lower(variable.name));
        locals_.push_back(std::move(variable));
    }
    names_.insert(Lower(procedure.name));
}

std::vector<std::string> Scope::TakeBefore() {
    return std::exchange(before_, {});
}

std::string Scope::LocalName(Type type) {
    if (type.kind == TypeKind::Class) {
        const Module& owner = At(type.index);
        const std::string_view bare = std::string_view(owner.name).substr(owner.name.starts_with("cls") ? 3 : 1);
        return Cat({Prefix(type, module_.style), random_.Chance(60) ? bare : std::string_view(owner.subject)});
    }
    if (type.kind == TypeKind::Record) {
        const std::string& name = plan_.records[static_cast<std::size_t>(type.index)].name;
        return Cat({Prefix(type, module_.style), std::string_view(name).substr(name.starts_with("typ") ? 3 : 1)});
    }
    if (type.kind == TypeKind::String && random_.Chance(20))
        return Cat({Prefix(type, module_.style), random_.Chance(50) ? "SQL" : "File"});
    if (module_.style.notation == 3) {
        const std::string_view noun = Noun(random_);
        return Cat({Lower(noun.substr(0, 1)), noun.substr(1), random_.Of(LocalWords)});
    }
    std::string word(random_.Chance(55) ? random_.Of(LocalWords) : Noun(random_));
    if (random_.Chance(25))
        word += Noun(random_);
    return Cat({Prefix(type, module_.style), word});
}

Variable& Scope::NewLocal(Type type, bool isArray, std::string_view wanted) {
    std::string name(wanted);
    while (name.empty() || names_.contains(Lower(name)) || module_.names.contains(Lower(name)))
        name = Cat({LocalName(type), name.empty() ? std::string_view() : Noun(random_)});
    names_.insert(Lower(name));
    Variable variable;
    variable.name = name;
    variable.type = type;
    variable.isArray = isArray;
    variable.isStatic = !IsObject(type) && random_.Chance(2);
    if (isArray) {
        variable.isFixed = random_.Chance(35);
        if (!variable.isFixed)
            before_.push_back(Cat({"ReDim ", name, "(", Value(Long, DeepestCall), ")"}));
    } else if (type.kind == TypeKind::Class) {
        variable.isNew = random_.Chance(12);
        if (!variable.isNew)
            before_.push_back(Cat({"Set ", name, " = New ", plan_.TypeName(type)}));
    } else if (type.kind == TypeKind::Collection || type.kind == TypeKind::Recordset) {
        before_.push_back(Cat({"Set ", name, " = New ", plan_.TypeName(type)}));
    } else if (type.kind == TypeKind::Object) {
        const bool canBeMe = module_.kind != ModuleKind::Standard && random_.Chance(30);
        before_.push_back(Cat({"Set ", name, " = ",
                               canBeMe              ? "Me"
                               : random_.Chance(60) ? "Screen.ActiveForm"
                                                    : "CreateObject(\"Scripting.Dictionary\")"}));
    }
    locals_.push_back(std::move(variable));
    return locals_.back();
}

std::string Scope::EnterLoop(Type type) {
    static constexpr std::array<std::string_view, 4> Letters = {"i", "j", "k", "n"};
    for (const Variable& local : locals_) {
        const bool isCounter = local.readOnly && !local.isArray && IsWholeNumber(local.type);
        if (isCounter && std::find(counters_.begin(), counters_.end(), local.name) == counters_.end()) {
            counters_.push_back(local.name);
            return local.name;
        }
    }
    std::string_view wanted;
    for (const std::string_view letter : Letters) {
        if (wanted.empty() && !names_.contains(std::string(letter)) && random_.Chance(75))
            wanted = letter;
    }
    Variable& counter = NewLocal(type, false, wanted);
    counter.readOnly = true;
    counters_.push_back(counter.name);
    return counter.name;
}

const Variable* Scope::Find(Type type, bool isForWriting, bool isArray) {
    const Variable* best = nullptr;
    int seen = 0;
    const auto offer = [&](const Variable& variable, int weight) {
        if (!Fits(type, variable.type) || variable.isArray != isArray || (isForWriting && variable.readOnly))
            return;
        if (isForWriting && variable.type != type)
            return;
        seen += weight;
        if (random_.Below(seen) < weight)
            best = &variable;
    };
    for (const Variable& local : locals_)
        offer(local, 3);
    for (const Variable& variable : module_.variables)
        offer(variable, 1);
    if (!best && !plan_.standards.empty() && random_.Chance(30)) {
        const Module& other = At(plan_.Near(plan_.standards, position_));
        for (const Variable& variable : other.variables) {
            if (variable.isPublic)
                offer(variable, 1);
        }
    }
    return best;
}

std::string Scope::Exact(Type type, bool isArray) {
    const Variable* found = Find(type, true, isArray);
    return found ? found->name : NewLocal(type, isArray).name;
}

std::string Scope::Index() {
    if (!counters_.empty() && random_.Chance(80))
        return counters_.back();
    const Variable* found = random_.Chance(40) ? Find(Integer, false) : nullptr;
    return found ? found->name : std::to_string(random_.Between(0, 9));
}

std::string Scope::Element(const Variable& variable) {
    return Cat({variable.name, "(", Index(), ")"});
}

std::string Scope::StringLiteral() {
    const std::string first = Spoken(Noun(random_));
    switch (random_.Weighted({8, 16, 14, 16, 18, 8, 8, 12})) {
        case 0:
            return "\"\"";
        case 1:
            return Cat({"\"", Noun(random_), "\""});
        case 2:
            return Cat({"\"", Noun(random_), " ", Spoken(Noun(random_)), "\""});
        case 3:
            return Cat({"\"The ", first, " \"\"", Noun(random_), "\"\" is not valid.\""});
        case 4:
            return Cat({"\"Can't find the ", first, " of this ", Spoken(Noun(random_)), "\""});
        case 5:
            return Cat({"\"tbl", Noun(random_), "\""});
        case 6:
            return Cat({"\"", Upper(first), "_", Upper(Noun(random_)), "\""});
        default:
            return Cat({"\"Please choose the ", first, " of the ", Spoken(Noun(random_)), " first.\""});
    }
}

std::string Scope::MessagePart() {
    const std::string noun = Spoken(Noun(random_));
    switch (random_.Below(6)) {
        case 0:
            return Cat({"\" of the ", noun, " \""});
        case 1:
            return Cat({"\", ", noun, ": \""});
        case 2:
            return Cat({"\" doesn't fit the ", noun, " \""});
        case 3:
            return "vbCrLf";
        case 4:
            return Cat({"\" (", noun, ") \""});
        default:
            return Cat({"\"\"\" is no ", noun, ": \"\"\""});
    }
}

std::string Scope::NumberLiteral() {
    switch (random_.Weighted({60, 25, 8, 4, 3})) {
        case 0:
            return std::to_string(random_.Between(0, 12));
        case 1:
            return std::to_string(random_.Between(1, 50) * 10);
        case 2:
            return "-1";
        case 3:
            return std::to_string(random_.Between(1000, 32000));
        default:
            return Cat({"&H", std::to_string(random_.Between(1, 9)), "F"});
    }
}

bool Scope::MayUse(int enumeration) const {
    const Enumeration& type = plan_.enumerations[static_cast<std::size_t>(enumeration)];
    return type.isPublic || type.module == position_;
}

std::string Scope::EnumerationMember(int enumeration) {
    const Enumeration& type = plan_.enumerations[static_cast<std::size_t>(enumeration)];
    const std::string& member = random_.Of(type.members);
    return random_.Chance(10) ? Cat({type.name, ".", member}) : member;
}

std::string Scope::RecordMember(Type type) {
    const Variable* record = nullptr;
    int seen = 0;
    const auto offer = [&](const Variable& variable) {
        if (variable.type.kind == TypeKind::Record && random_.Below(++seen) == 0)
            record = &variable;
    };
    for (const Variable& local : locals_)
        offer(local);
    for (const Variable& variable : module_.variables)
        offer(variable);
    if (!record)
        return {};
    std::string path = record->isArray ? Element(*record) : record->name;
    int recordIndex = record->type.index;
    for (int level = 0; level < 2; ++level) {
        const Record& shape = plan_.records[static_cast<std::size_t>(recordIndex)];
        const Variable* inner = nullptr;
        for (const Variable& member : shape.members) {
            if (Fits(type, member.type))
                return Cat({path, ".", member.isArray ? Element(member) : member.name});
            if (member.type.kind == TypeKind::Record && !member.isArray)
                inner = &member;
        }
        if (!inner)
            break;
        path = Cat({path, ".", inner->name});
        recordIndex = inner->type.index;
    }
    return {};
}

template <class Wanted>
Scope::Found Scope::PickFrom(int module, Wanted isWanted) {
    Found found;
    int seen = 0;
    Module& candidates = plan_.modules[static_cast<std::size_t>(module)];
    for (Procedure& candidate : candidates.procedures) {
        const bool isReachable = module == position_ || candidate.isPublic || candidate.isFriend;
        if (!isReachable || candidate.isDead || candidate.kind == ProcedureKind::Handler || &candidate == &procedure_ ||
            !isWanted(candidate))
            continue;
        const int weight = candidate.isCalled ? 1 : 8;
        seen += weight;
        if (random_.Below(seen) < weight)
            found = {module, &candidate};
    }
    return found;
}

std::string Scope::Arguments(const std::vector<Parameter>& parameters, int depth) {
    std::string list;
    for (const Parameter& parameter : parameters) {
        if (parameter.isOptional && random_.Chance(50))
            break;
        std::string argument;
        if (parameter.isParamArray) {
            const int count = random_.Between(1, 3);
            for (int i = 0; i < count; ++i)
                argument += Cat({i > 0 ? ", " : "", SimpleValue(plan_.BasicType())});
        } else if (parameter.isAny) {
            argument = random_.Chance(50) ? "ByVal 0&" : Exact(Long);
        } else if (parameter.isArray) {
            argument = Exact(parameter.type, true);
            if (random_.Chance(60))
                argument += "()";
        } else if (parameter.passing != Passing::ByVal && random_.Chance(65)) {
            argument = Exact(parameter.type);
        } else {
            argument = Value(parameter.type, depth + 1);
        }
        list += Cat({list.empty() ? "" : ", ", argument});
    }
    return list;
}

std::string Scope::Call(const Found& found, int depth, bool isStatement) {
    Procedure& callee = *found.procedure;
    callee.isCalled = true;
    std::string name = callee.name;
    if (found.module != position_) {
        // An own procedure of that name would be taken instead, and an ambiguous name not compiled.
        const bool mustSayModule = module_.names.contains(Lower(name)) || !plan_.IsUniqueName(name);
        if (mustSayModule || random_.Chance(6) || At(found.module).kind != ModuleKind::Standard)
            name = Cat({At(found.module).name, ".", name});
    } else if (module_.kind != ModuleKind::Standard && callee.isPublic && random_.Chance(15)) {
        name = Cat({"Me.", name});
    }
    const std::string arguments = Arguments(callee.parameters, depth);
    if (!isStatement)
        return arguments.empty() ? Cat({name, random_.Chance(50) ? "()" : ""}) : Cat({name, "(", arguments, ")"});
    if (module_.style.saysCall || random_.Chance(5))
        return arguments.empty() ? Cat({"Call ", name}) : Cat({"Call ", name, "(", arguments, ")"});
    return arguments.empty() ? name : Cat({name, " ", arguments});
}

std::string Scope::CallValue(Type type, int depth) {
    const auto answers = [&](const Procedure& candidate) {
        return candidate.HasValue() && candidate.kind != ProcedureKind::Get && candidate.result == type;
    };
    for (int attempt = 0; attempt < 3; ++attempt) {
        const int target = random_.Chance(45) ? position_ : plan_.Near(plan_.standards, position_);
        const Found found = PickFrom(target, answers);
        if (found.procedure)
            return Call(found, depth, false);
    }
    return {};
}

std::string Scope::ObjectOf(int classModule) {
    const Type type{TypeKind::Class, classModule};
    const Variable* found = Find(type, false);
    return found ? found->name : NewLocal(type).name;
}

std::string Scope::ObjectValue(Type type, int depth) {
    const auto answers = [&](const Procedure& candidate) { return candidate.HasValue() && candidate.result == type; };
    // A class that is in use here already is the likeliest source.
    const Variable* known = nullptr;
    int seen = 0;
    for (const Variable& local : locals_) {
        if (local.type.kind == TypeKind::Class && !local.isArray && random_.Below(++seen) == 0)
            known = &local;
    }
    const int target = known && random_.Chance(75) ? known->type.index : plan_.Near(plan_.classes, position_);
    if (target < 0 || target == position_)
        return {};
    const Found found = PickFrom(target, answers);
    if (!found.procedure)
        return {};
    found.procedure->isCalled = true;
    const std::string object = ObjectOf(target);
    const std::string arguments = Arguments(found.procedure->parameters, depth);
    if (arguments.empty())
        return Cat({object, ".", found.procedure->name});
    return Cat({object, ".", found.procedure->name, "(", arguments, ")"});
}

std::string Scope::ControlValue(Type type) {
    for (int attempt = 0; attempt < 3 && !module_.controls.empty(); ++attempt) {
        const Control& control = random_.Of(module_.controls);
        const std::string name = control.count > 1 ? Cat({control.name, "(", Index(), ")"}) : control.name;
        const std::string_view sort = control.className;
        if (type.kind == TypeKind::String) {
            if (sort == "VB.TextBox" || sort == "VB.ComboBox")
                return random_.Chance(30) ? Cat({"Trim$(", name, ".Text)"}) : Cat({name, ".Text"});
            if (sort == "VB.Label" || sort == "VB.Frame")
                return Cat({name, ".Caption"});
        } else if (type.kind == TypeKind::Boolean) {
            if (sort == "VB.CheckBox")
                return Cat({"(", name, ".Value = vbChecked)"});
            if (sort == "VB.OptionButton")
                return Cat({name, ".Value"});
            if (sort != "VB.Menu" && random_.Chance(30))
                return Cat({name, random_.Chance(50) ? ".Enabled" : ".Visible"});
        } else if (IsWholeNumber(type)) {
            if (sort == "VB.ListBox" || sort == "VB.ComboBox")
                return Cat({name, random_.Chance(50) ? ".ListIndex" : ".ListCount"});
            if (sort == "MSComctlLib.ListView")
                return Cat({name, ".ListItems.Count"});
            if (sort == "VB.TextBox")
                return Cat({"Val(", name, ".Text)"});
        }
    }
    return {};
}

std::string Scope::SimpleValue(Type type) {
    const Variable* found = random_.Chance(65) ? Find(type, false) : nullptr;
    if (found)
        return found->name;
    switch (type.kind) {
        case TypeKind::String:
            return StringLiteral();
        case TypeKind::Boolean:
            return random_.Chance(50) ? "True" : "False";
        case TypeKind::Date:
            return random_.Chance(60) ? "Now" : "Date";
        case TypeKind::Double:
        case TypeKind::Currency:
            return random_.Chance(50)
                       ? NumberLiteral()
                       : Cat({std::to_string(random_.Between(0, 99)), ".", std::to_string(random_.Between(1, 9))});
        case TypeKind::Variant:
            return random_.Chance(50) ? NumberLiteral() : StringLiteral();
        case TypeKind::Enumeration:
            return MayUse(type.index) ? EnumerationMember(type.index) : "0";
        case TypeKind::Record:
            return Exact(type);
        case TypeKind::Class:
        case TypeKind::Collection:
        case TypeKind::Recordset:
            return random_.Chance(85) ? Exact(type) : std::string("Nothing");
        case TypeKind::Object:
            return module_.kind != ModuleKind::Standard && random_.Chance(60) ? std::string("Me") : Exact(type);
        case TypeKind::Byte:
            return std::to_string(random_.Between(0, 255));
        default:
            return NumberLiteral();
    }
}

std::string Scope::NamedValue(Type type) {
    const Variable* found = Find(type, false);
    return found ? found->name : Exact(type);
}

std::string Scope::WholeNumber(Type type, int depth) {
    std::string made;
    switch (random_.Weighted({22, 14, 14, 10, 10, 9, 8, 8, 5})) {
        case 0:
            break;
        case 1: {
            static constexpr std::array<std::string_view, 6> Operators = {" + ", " - ", " * ", " + 1", " - 1", " \\ "};
            const std::string_view sign = random_.Of(Operators);
            const std::string left = NamedValue(type);
            std::string right = sign.ends_with(' ') ? SimpleValue(type) : std::string();
            if (right == left)
                right = NumberLiteral();
            return Cat({left, sign, right});
        }
        case 2:
            made = CallValue(type, depth);
            break;
        case 3:
            made = RecordMember(type);
            break;
        case 4:
            made = ObjectValue(type, depth);
            break;
        case 5: {
            static constexpr std::array<std::string_view, 4> Functions = {"Len(", "Val(", "Asc(", "InStr("};
            const std::string_view name = random_.Of(Functions);
            return Cat({name, NamedValue(String), name == "InStr(" ? Cat({", ", StringLiteral()}) : "", ")"});
        }
        case 6: {
            const Variable* array = Find(random_.Chance(50) ? String : type, false, true);
            if (array)
                return Cat({random_.Chance(85) ? "UBound(" : "LBound(", array->name, ")"});
            break;
        }
        case 7:
            made = ControlValue(type);
            break;
        default:
            if (!module_.constants.empty()) {
                const Constant& constant = random_.Of(module_.constants);
                if (constant.type == type)
                    return constant.name;
            }
            made = Cat({"CLng(", Value({TypeKind::Double, -1}, depth + 1), ")"});
    }
    return made.empty() ? SimpleValue(type) : made;
}

std::string Scope::Text(int depth) {
    std::string made;
    switch (random_.Weighted({20, 20, 12, 10, 12, 14, 8, 4})) {
        case 0:
            break;
        case 1: {
            // Literals and names take turns, as in messages.
            bool isLiteral = random_.Chance(60);
            std::string last = isLiteral ? Cat({"\"", Noun(random_), " \""}) : NamedValue(String);
            std::string sum = last;
            const int parts = random_.Between(1, depth > 0 ? 2 : 4);
            for (int i = 0; i < parts; ++i) {
                isLiteral = !isLiteral;
                std::string next = isLiteral ? MessagePart() : NamedValue(String);
                if (next == last)
                    next = Cat({"CStr(", NamedValue(Long), ")"});
                sum += Cat({" & ", next});
                last = next;
            }
            return sum;
        }
        case 2:
            made = CallValue(String, depth);
            break;
        case 3:
            made = RecordMember(String);
            break;
        case 4:
            made = ObjectValue(String, depth);
            break;
        case 5: {
            switch (random_.Below(8)) {
                case 0:
                    return Cat({"Left$(", NamedValue(String), ", ", SimpleValue(Long), ")"});
                case 1:
                    return Cat({"Trim$(", NamedValue(String), ")"});
                case 2:
                    return Cat({"Format$(", NamedValue({TypeKind::Double, -1}), ", \"#,##0.00\")"});
                case 3:
                    return Cat({"CStr(", NamedValue(Long), ")"});
                case 4:
                    return Cat({"Mid$(", NamedValue(String), ", ", SimpleValue(Long), ", 1)"});
                case 5:
                    return Cat({"Replace(", NamedValue(String), ", \"'\", \"''\")"});
                case 6:
                    return Cat({"App.Path & \"\\", Noun(random_), ".txt\""});
                default:
                    return Cat({"UCase$(", NamedValue(String), ") & vbCrLf"});
            }
        }
        case 6:
            made = ControlValue(String);
            break;
        default: {
            const Variable* array = Find(String, false, true);
            if (array)
                return Element(*array);
            const Variable* rows = Find({TypeKind::Recordset, -1}, false);
            if (rows)
                return random_.Chance(50) ? Cat({rows->name, "!", Noun(random_)})
                                          : Cat({rows->name, ".Fields(\"", Noun(random_), "\").Value & \"\""});
        }
    }
    return made.empty() ? SimpleValue(String) : made;
}

std::string Scope::Fraction(Type type, int depth) {
    std::string made;
    switch (random_.Weighted({25, 25, 15, 10, 15, 10})) {
        case 1: {
            static constexpr std::array<std::string_view, 4> Operators = {" * ", " + ", " / ", " - "};
            const std::string left = NamedValue(type);
            const std::string_view sign = random_.Of(Operators);
            std::string right = SimpleValue(type);
            if (right == left)
                right = Cat({std::to_string(random_.Between(1, 9)), ".5"});
            return Cat({left, sign, right});
        }
        case 2:
            made = CallValue(type, depth);
            break;
        case 3:
            made = RecordMember(type);
            break;
        case 4:
            made = ObjectValue(type, depth);
            break;
        case 5:
            return Cat({"Round(", NamedValue(type), " * ", SimpleValue(Long), " / 100, 2)"});
        default:
            break;
    }
    return made.empty() ? SimpleValue(type) : made;
}

std::string Scope::Value(Type type, int depth) {
    if (depth >= DeepestCall)
        return SimpleValue(type);
    std::string made;
    switch (type.kind) {
        case TypeKind::Integer:
        case TypeKind::Long:
        case TypeKind::Byte:
            return WholeNumber(type, depth);
        case TypeKind::String:
            return Text(depth);
        case TypeKind::Double:
        case TypeKind::Currency:
            return Fraction(type, depth);
        case TypeKind::Boolean:
            if (random_.Chance(30)) {
                const std::string condition = Condition(depth + 1);
                return condition.find(' ') == std::string::npos ? condition : Cat({"(", condition, ")"});
            }
            made = random_.Chance(40) ? CallValue(type, depth) : random_.Chance(30) ? ControlValue(type) : "";
            break;
        case TypeKind::Date:
            if (random_.Chance(25))
                return Cat({"DateAdd(\"d\", ", SimpleValue(Long), ", ", SimpleValue(type), ")"});
            break;
        case TypeKind::Variant:
            if (random_.Chance(35))
                return Value(plan_.BasicType(), depth + 1);
            made = random_.Chance(30) ? CallValue(type, depth) : "";
            break;
        default:
            made = random_.Chance(45) ? CallValue(type, depth) : random_.Chance(30) ? ObjectValue(type, depth) : "";
    }
    if (made.empty() && random_.Chance(15))
        made = RecordMember(type);
    return made.empty() ? SimpleValue(type) : made;
}

std::string Scope::Condition(int depth) {
    static constexpr std::array<std::string_view, 6> Comparisons = {" = ", " > ", " < ", " <> ", " >= ", " <= "};
    if (depth == 0 && random_.Chance(22)) {
        const std::string first = Condition(1);
        const std::string second = Condition(1);
        return first == second ? first : Cat({first, random_.Chance(65) ? " And " : " Or ", second});
    }
    std::string made;
    switch (random_.Weighted({30, 18, 10, 14, 8, 8, 6, 6})) {
        case 0: {
            const Type type = random_.Chance(70) ? Long : Integer;
            const std::string left = random_.Chance(50) ? NamedValue(type) : Value(type, depth + 1);
            const bool isLiteral = left.find_first_not_of("-0123456789") == std::string::npos;
            const std::string_view sign = random_.Of(Comparisons);
            std::string right = random_.Chance(65) ? NumberLiteral() : Value(type, depth + 1);
            if (right == left)
                right = NumberLiteral();
            return Cat({isLiteral ? NamedValue(type) : left, sign, right});
        }
        case 1: {
            std::string left = Value(String, depth + 1);
            if (left.starts_with('"'))
                left = NamedValue(String);
            return Cat({left, random_.Chance(60) ? " = " : " <> ",
                        random_.Chance(45) ? std::string("\"\"") : StringLiteral()});
        }
        case 2:
            return Cat({"Len(", NamedValue(String), ") ", random_.Chance(50) ? "= 0" : "> 0"});
        case 3: {
            made = CallValue(Boolean, depth + 1);
            if (!made.empty() && random_.Chance(40))
                made = Cat({"Not ", made});
            break;
        }
        case 4: {
            const Variable* object = Find({TypeKind::Collection, -1}, false);
            if (!object && !plan_.classes.empty())
                object = Find({TypeKind::Class, plan_.Near(plan_.classes, position_)}, false);
            if (object)
                return Cat({random_.Chance(50) ? "Not " : "", object->name, " Is Nothing"});
            break;
        }
        case 5:
            made = ControlValue(Boolean);
            break;
        case 6: {
            if (module_.enumerations.empty())
                break;
            const Type type{TypeKind::Enumeration, random_.Of(module_.enumerations)};
            const Variable* found = Find(type, false);
            if (found)
                return Cat({found->name, " = ", EnumerationMember(type.index)});
            break;
        }
        default: {
            const Variable* found = Find(AnyVariant, false);
            if (found)
                return Cat({random_.Chance(50) ? "IsNull(" : "IsNumeric(", found->name, ")"});
        }
    }
    if (!made.empty())
        return made;
    return Cat({random_.Chance(25) ? "Not " : "", NamedValue(Boolean)});
}

std::string Scope::Target(Type type) {
    if (random_.Chance(12)) {
        std::string member = RecordMember(type);
        if (!member.empty())
            return member;
    }
    if (random_.Chance(10)) {
        const Variable* array = Find(type, true, true);
        if (array)
            return Element(*array);
    }
    const bool hasEnough = locals_.size() > procedure_.parameters.size() + 6;
    const Variable* found = hasEnough || random_.Chance(78) ? Find(type, true) : nullptr;
    return found ? found->name : NewLocal(type).name;
}

std::string Scope::CallStatement() {
    const auto acts = [](const Procedure& candidate) {
        return candidate.kind == ProcedureKind::Sub || (candidate.kind == ProcedureKind::Declare && candidate.isSub);
    };
    const auto mayBeIgnored = [](const Procedure& candidate) { return candidate.kind == ProcedureKind::Function; };
    for (int attempt = 0; attempt < 3; ++attempt) {
        int target = random_.Chance(50) ? position_ : plan_.Near(plan_.standards, position_);
        if (random_.Chance(6) && !plan_.forms.empty())
            target = plan_.Near(plan_.forms, position_);
        const Found found = random_.Chance(94) ? PickFrom(target, acts) : PickFrom(target, mayBeIgnored);
        if (found.procedure)
            return Call(found, 0, true);
    }
    return {};
}

std::string Scope::CallAssignment() {
    const auto answers = [](const Procedure& candidate) {
        return candidate.kind == ProcedureKind::Function && !candidate.isCalled;
    };
    const int target = random_.Chance(60) ? position_ : plan_.Near(plan_.standards, position_);
    const Found found = PickFrom(target, answers);
    if (!found.procedure)
        return {};
    const Type type = found.procedure->result;
    const std::string call = Call(found, 0, false);
    return Cat({IsObject(type) ? "Set " : "", Target(type), " = ", call});
}

std::string Scope::MemberStatement(Type type) {
    if (type.kind == TypeKind::Record) {
        const Variable& member = random_.Of(plan_.records[static_cast<std::size_t>(type.index)].members);
        const std::string place = member.isArray ? Element(member) : member.name;
        return Cat(
            {IsObject(member.type) ? "Set " : "", ".", place, " = ",
             member.type.kind == TypeKind::Record || IsObject(member.type) ? Exact(member.type) : Value(member.type)});
    }
    const Found found = PickFrom(type.index, [](const Procedure& candidate) {
        return candidate.isPublic && (candidate.kind == ProcedureKind::Sub || candidate.kind == ProcedureKind::Let ||
                                      candidate.kind == ProcedureKind::Set);
    });
    if (!found.procedure)
        return {};
    found.procedure->isCalled = true;
    const std::vector<Parameter>& parameters = found.procedure->parameters;
    if (found.procedure->kind != ProcedureKind::Sub)
        return Cat({found.procedure->kind == ProcedureKind::Set ? "Set " : "", ".", found.procedure->name, " = ",
                    Value(parameters.back().type)});
    const std::string arguments = Arguments(parameters, 0);
    return Cat({".", found.procedure->name, arguments.empty() ? "" : " ", arguments});
}

std::optional<Variable> Scope::WithSubject() {
    const Variable* known = nullptr;
    int seen = 0;
    const auto offer = [&](const Variable& variable, int weight) {
        const bool hasMembers = variable.type.kind == TypeKind::Class || variable.type.kind == TypeKind::Record;
        if (!hasMembers || variable.isArray || variable.type.index == position_)
            return;
        seen += weight;
        if (random_.Below(seen) < weight)
            known = &variable;
    };
    for (const Variable& local : locals_)
        offer(local, 2);
    for (const Variable& variable : module_.variables)
        offer(variable, 1);
    if (known && random_.Chance(80))
        return *known;
    const int target = plan_.Near(plan_.classes, position_);
    if (target >= 0 && target != position_)
        return NewLocal({TypeKind::Class, target});
    return known ? std::optional<Variable>(*known) : std::nullopt;
}

std::string Scope::ObjectStatement() {
    const std::optional<Variable> subject = WithSubject();
    if (!subject)
        return {};
    std::string statement = MemberStatement(subject->type);
    // ".Member" and "Set .Member" get the variable before their dot, which is the first one.
    if (!statement.empty())
        statement.insert(statement.find('.'), subject->name);
    return statement;
}

std::string Scope::ControlStatement() {
    if (module_.controls.empty())
        return {};
    const Control& control = random_.Of(module_.controls);
    const std::string name = control.count > 1 ? Cat({control.name, "(", Index(), ")"}) : control.name;
    const std::string_view sort = control.className;
    const std::string truth = Value(Boolean, 1);
    if (sort == "VB.TextBox")
        return random_.Chance(70)   ? Cat({name, ".Text = ", Value(String)})
               : random_.Chance(50) ? Cat({name, ".SetFocus"})
                                    : Cat({name, ".Enabled = ", truth});
    if (sort == "VB.Label" || sort == "VB.Frame")
        return Cat({name, ".Caption = ", Value(String)});
    if (sort == "VB.CommandButton")
        return Cat({name, random_.Chance(75) ? ".Enabled = " : ".Visible = ", truth});
    if (sort == "VB.ComboBox" || sort == "VB.ListBox")
        return random_.Chance(50)   ? Cat({name, ".AddItem ", Value(String)})
               : random_.Chance(50) ? Cat({name, ".ListIndex = ", NumberLiteral()})
                                    : Cat({name, ".Clear"});
    if (sort == "VB.CheckBox")
        return Cat({name, ".Value = IIf(", Condition(1), ", vbChecked, vbUnchecked)"});
    if (sort == "VB.OptionButton")
        return Cat({name, ".Value = True"});
    if (sort == "VB.Timer")
        return random_.Chance(60) ? Cat({name, ".Enabled = ", truth}) : Cat({name, ".Interval = ", NumberLiteral()});
    if (sort == "VB.PictureBox")
        return random_.Chance(50) ? Cat({name, ".Cls"}) : Cat({name, ".Visible = ", truth});
    if (sort == "VB.Menu")
        return Cat({name, random_.Chance(50) ? ".Enabled = " : ".Checked = ", truth});
    if (sort == "MSComctlLib.ListView")
        return random_.Chance(40) ? Cat({name, ".ListItems.Clear"})
                                  : Cat({name, ".ListItems.Add , ", Value(String, 1), ", ", Value(String, 1)});
    if (sort == "MSComctlLib.TreeView")
        return Cat({name, ".Nodes.Add , tvwChild, ", Value(String, 1), ", ", Value(String, 1)});
    if (sort == "MSComctlLib.StatusBar")
        return Cat({name, ".Panels(", std::to_string(random_.Between(1, 3)), ").Text = ", Value(String)});
    return Cat({name, random_.Chance(50) ? ".Visible = " : ".Enabled = ", truth});
}

}  // namespace generate

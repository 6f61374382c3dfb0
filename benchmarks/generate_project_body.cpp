#include "generate_project_body.h"

#include <algorithm>
#include <optional>
#include <utility>

// The body is written first, into a writer of its own: only then is it known which variables it declares.

namespace generate {

namespace {

constexpr Type Long{TypeKind::Long, -1};
constexpr Type Integer{TypeKind::Integer, -1};
constexpr Type String{TypeKind::String, -1};
constexpr Type Boolean{TypeKind::Boolean, -1};
constexpr Type AnyObject{TypeKind::Object, -1};
constexpr Type Collection{TypeKind::Collection, -1};
constexpr Type Recordset{TypeKind::Recordset, -1};

constexpr int DeepestNesting = 4;

std::string_view Rule() {
    return "---------------------------------------------------------------------------";
}

}  // namespace

std::string ParameterList(const Plan& plan, const Style& style, const std::vector<Parameter>& parameters) {
    std::string list;
    for (const Parameter& parameter : parameters) {
        if (!list.empty())
            list += ", ";
        if (parameter.isOptional)
            list += "Optional ";
        if (parameter.isParamArray)
            list += "ParamArray ";
        else if (parameter.passing != Passing::Unsaid)
            list += parameter.passing == Passing::ByVal ? "ByVal " : "ByRef ";
        list += parameter.name;
        const bool hasSign = style.notation == 2 && !parameter.isAny && !TypeSign(parameter.type).empty();
        if (hasSign)
            list += TypeSign(parameter.type);
        if (parameter.isArray)
            list += "()";
        if (!hasSign)
            list += Cat({" As ", parameter.isAny ? std::string("Any") : plan.TypeName(parameter.type)});
        if (!parameter.isOptional)
            continue;
        if (IsWholeNumber(parameter.type))
            list += " = 0";
        else if (parameter.type == String)
            list += " = \"\"";
        else if (parameter.type == Boolean)
            list += " = False";
    }
    return list;
}

ProcedureWriter::ProcedureWriter(Plan& plan, int module, Procedure& procedure, LineWriter& out)
    : plan_(plan),
      random_(plan.random),
      position_(module),
      procedure_(procedure),
      out_(out),
      body_(plan.modules[static_cast<std::size_t>(module)].style.indent),
      scope_(plan, module, procedure) {
    body_.depth = 1;
}

std::string_view ProcedureWriter::Kind() const {
    switch (procedure_.kind) {
        case ProcedureKind::Function:
            return "Function";
        case ProcedureKind::Get:
        case ProcedureKind::Let:
        case ProcedureKind::Set:
            return "Property";
        default:
            return "Sub";
    }
}

void ProcedureWriter::Write(int lines) {
    const Style& style = scope_.Owner().style;
    const int before = out_.Lines();
    Header();
    Head();
    const int room = std::max(1, lines - (out_.Lines() - before) - 2);

    const bool isAccessor = procedure_.backing >= 0;
    hasHandler_ = !isAccessor && room > 12 && random_.Chance(style.handlers);
    if (hasHandler_) {
        handlerLabel_ = random_.Chance(60)   ? "ErrHandler"
                        : random_.Chance(50) ? Cat({procedure_.name, "_Err"})
                                             : std::string("Fehler");
        body_.Statement(Cat({"On Error GoTo ", handlerLabel_}));
        if (random_.Chance(70))
            body_.Blank();
    } else if (!isAccessor && random_.Chance(4)) {
        body_.Statement("On Error Resume Next");
    }
    if (isAccessor)
        Accessor(room);
    else
        Statements(room - room / 8 - (hasHandler_ ? 5 : 0), 0);
    Ending();

    Declarations();
    out_.Append(body_);
    if (hasHandler_)
        ErrorHandler();
    out_.Raw(Cat({"End ", Kind()}));
}

void ProcedureWriter::Header() {
    const Style& style = scope_.Owner().style;
    const std::string words = Spoken(procedure_.name);
    out_.depth = 0;
    if (procedure_.kind == ProcedureKind::Handler && random_.Chance(80))
        return;
    if (procedure_.backing >= 0 && random_.Chance(70))
        return;
    const auto purpose = [&] {
        static constexpr std::array<std::string_view, 6> Ends = {"",
                                                                 " for the current record",
                                                                 ", called from the menu",
                                                                 " (see also the help file)",
                                                                 " and tells the caller",
                                                                 ", must not be called twice"};
        return Cat({random_.Chance(60) ? "" : random_.Chance(50) ? "Does: " : "Used to ", words, random_.Of(Ends)});
    };
    switch (style.header) {
        case 1:
            out_.Comment(Cat({" ", purpose()}));
            if (random_.Chance(25))
                out_.Comment(Cat({" Returns ", random_.Chance(50) ? "0" : "an empty string", " if there is no ",
                                  Spoken(Noun(random_))}));
            break;
        case 2:
            out_.Comment(Rule());
            out_.Comment(Cat({" Procedure : ", procedure_.name}));
            out_.Comment(Cat({" Purpose   : ", purpose()}));
            if (!procedure_.parameters.empty() && random_.Chance(70))
                out_.Comment(
                    Cat({" Parameter : ", procedure_.parameters.front().name, " - the ", Spoken(Noun(random_))}));
            out_.Comment(Rule());
            break;
        case 3: {
            const int remarks = random_.Between(1, 3);
            out_.Comment(Cat({"** ", procedure_.name, " **"}));
            for (int i = 0; i < remarks; ++i)
                RemarkLine(out_);
            break;
        }
        default:
            break;
    }
}

void ProcedureWriter::Head() {
    const Style& style = scope_.Owner().style;
    std::string_view access = procedure_.isPublic ? "Public " : procedure_.isFriend ? "Friend " : "Private ";
    // Old modules say nothing, which is public.
    if (procedure_.isPublic && style.notation == 2 && random_.Chance(50))
        access = "";
    std::string_view accessor;
    if (procedure_.kind == ProcedureKind::Get)
        accessor = "Get ";
    else if (procedure_.kind == ProcedureKind::Let)
        accessor = "Let ";
    else if (procedure_.kind == ProcedureKind::Set)
        accessor = "Set ";
    std::string head = Cat({access, Kind(), " ", accessor, procedure_.name});
    const bool hasSign = procedure_.HasValue() && style.notation == 2 && !TypeSign(procedure_.result).empty();
    if (hasSign)
        head += TypeSign(procedure_.result);
    head += Cat({"(", ParameterList(plan_, style, procedure_.parameters), ")"});
    if (procedure_.HasValue() && !hasSign)
        head += Cat({" As ", plan_.TypeName(procedure_.result)});
    out_.depth = 0;
    out_.Statement(head);
    const bool isClass = scope_.Owner().kind == ModuleKind::Class;
    if (isClass && procedure_.kind == ProcedureKind::Get && procedure_.isPublic && random_.Chance(2))
        out_.Raw(Cat({"Attribute ", procedure_.name, ".VB_UserMemId = 0"}));
}

void ProcedureWriter::Declarations() {
    const Style& style = scope_.Owner().style;
    const std::vector<Variable>& locals = scope_.Locals();
    const std::size_t parameters = procedure_.parameters.size();
    // What was declared once and isn't used any more.
    if (locals.size() > parameters + 2 && random_.Chance(12))
        scope_.NewLocal(random_.Chance(60) ? String : Long);
    (void)scope_.TakeBefore();

    out_.depth = 1;
    if (random_.Chance(3))
        out_.Statement(Cat({"Const ", Upper(Noun(random_)), "_", Upper(Noun(random_)), " = ", scope_.NumberLiteral()}));
    std::string line;
    for (std::size_t i = parameters; i < locals.size(); ++i) {
        const Variable& local = locals[i];
        const std::string_view sign = TypeSign(local.type);
        const bool hasSign = style.notation == 2 && !sign.empty();
        std::string declaration = local.name;
        if (hasSign)
            declaration += sign;
        if (local.isArray)
            declaration += local.isFixed ? Cat({"(", std::to_string(random_.Between(3, 50)), ")"}) : "()";
        if (!hasSign)
            declaration += Cat({" As ", local.isNew ? "New " : "", plan_.TypeName(local.type)});
        // Several in one line, as long as people can still read it.
        const bool joins = !line.empty() && !local.isStatic && !line.starts_with("Static") && line.size() < 40 &&
                           random_.Chance(style.notation == 0 ? 18 : 40);
        if (joins) {
            line += Cat({", ", declaration});
            continue;
        }
        if (!line.empty())
            out_.Statement(line);
        line = Cat({local.isStatic ? "Static " : "Dim ", declaration});
    }
    if (!line.empty()) {
        out_.Statement(line);
        if (random_.Chance(60))
            out_.Blank();
    }
}

void ProcedureWriter::Accessor(int lines) {
    const Variable& backing = scope_.Owner().variables[static_cast<std::size_t>(procedure_.backing)];
    const std::string_view set = IsObject(procedure_.result) ? "Set " : "";
    const std::string name = backing.isArray ? Cat({backing.name, "(0)"}) : backing.name;
    if (procedure_.kind == ProcedureKind::Get) {
        if (procedure_.result.kind == TypeKind::Class && random_.Chance(40))
            body_.Statement(
                Cat({"If ", name, " Is Nothing Then Set ", name, " = New ", plan_.TypeName(procedure_.result)}));
        Statements(lines - 6, 1);
        body_.Statement(Cat({set, procedure_.name, " = ", name}));
        return;
    }
    const std::string value = procedure_.parameters.back().name;
    if (procedure_.result == String && random_.Chance(25))
        body_.Statement(Cat({"If ", name, " = ", value, " Then Exit Property"}));
    Statements(lines - 7, 1);
    body_.Statement(Cat({set, name, " = ", value}));
    if (scope_.Owner().kind == ModuleKind::Control)
        body_.Statement(Cat({"PropertyChanged \"", procedure_.name, "\""}));
}

void ProcedureWriter::Ending() {
    const bool isFunction = procedure_.kind == ProcedureKind::Function;
    if (isFunction) {
        const std::string_view set = IsObject(procedure_.result) ? "Set " : "";
        if (procedure_.result.kind == TypeKind::Record)
            Say(Cat({procedure_.name, " = ", scope_.Exact(procedure_.result)}));
        else
            Say(Cat({set, procedure_.name, " = ", scope_.Value(procedure_.result, 1)}));
    }
    if (procedure_.backing >= 0)
        return;
    for (std::size_t i = procedure_.parameters.size(); i < scope_.Locals().size(); ++i) {
        const Variable& local = scope_.Locals()[i];
        if (IsObject(local.type) && !local.isArray && random_.Chance(35))
            body_.Statement(Cat({"Set ", local.name, " = Nothing"}));
    }
}

void ProcedureWriter::ErrorHandler() {
    if (random_.Chance(60))
        out_.Blank();
    out_.depth = 1;
    out_.Statement(Cat({"Exit ", Kind()}));
    if (random_.Chance(50))
        out_.Blank();
    out_.Raw(Cat({handlerLabel_, ":"}));
    switch (random_.Below(4)) {
        case 0:
            out_.Statement(
                Cat({"MsgBox Err.Number & \": \" & Err.Description, vbCritical, \"", procedure_.name, "\""}));
            break;
        case 1:
            out_.Statement("Screen.MousePointer = vbDefault");
            out_.Statement(Cat({"MsgBox \"Error in ", procedure_.name, ": \" & Err.Description, vbExclamation"}));
            break;
        case 2:
            out_.Statement(
                Cat({"Err.Raise Err.Number, \"", scope_.Owner().name, ".", procedure_.name, "\", Err.Description"}));
            break;
        default:
            out_.Statement(Cat({"Debug.Print \"", procedure_.name, "\", Err.Description"}));
            out_.Statement("Resume Next");
    }
}

void ProcedureWriter::Say(std::string_view statement) {
    for (const std::string& line : scope_.TakeBefore())
        body_.Statement(line);
    body_.Statement(statement);
}

void ProcedureWriter::Inside(int lines, int nesting) {
    ++body_.depth;
    opened_ = body_.Lines();
    Statements(std::max(1, lines), nesting + 1);
    --body_.depth;
}

std::string ProcedureWriter::Matter() {
    // Mostly what the procedure or the module is about.
    const std::string_view name = procedure_.name;
    switch (random_.Weighted({40, 25, 35})) {
        case 0: {
            const std::string words = Spoken(name.substr(0, name.find('_')));
            const std::size_t blank = words.find(' ');
            return blank == std::string::npos ? words : words.substr(blank + 1);
        }
        case 1:
            return Spoken(scope_.Owner().subject);
        default:
            return Spoken(Noun(random_));
    }
}

void ProcedureWriter::RemarkLine(LineWriter& out) {
    const std::string noun = Matter();
    const std::string other = Spoken(Noun(random_));
    const std::string day = Cat({std::to_string(random_.Between(10, 28)), ".0", std::to_string(random_.Between(1, 9)),
                                 ".", random_.Chance(60) ? "199" : "200", std::to_string(random_.Between(0, 9))});
    static constexpr std::array<std::string_view, 5> Initials = {"hk", "MW", "jb", "ts", "RL"};
    switch (random_.Below(19)) {
        case 0:
            out.Comment(Cat({" the ", noun, " may be empty here, e.g. after a new ", other}));
            break;
        case 1:
            out.Comment(Cat({" first the ", noun, ", then the ", other, " (the order is important)"}));
            break;
        case 2:
            out.Comment(Cat({" don't change the ", noun, " before the ", other, " is saved!"}));
            break;
        case 3:
            out.Comment(Cat({" TODO: what if there's no ", noun, "? Ask the people of the ", other}));
            break;
        case 4:
            out.Comment(Cat({" ", day, " ", random_.Of(Initials), ": ", noun, " added, see list of changes"}));
            break;
        case 5:
            out.Comment(Cat({" get the ", noun, " of the ", other, ", it can have changed meanwhile"}));
            break;
        case 6:
            out.Comment(Cat({" all ", noun, "s, not only those of the ", other}));
            break;
        case 7:
            out.Comment(
                Cat({" ", day, " ", random_.Of(Initials), ": wrong ", noun, " if the \"", other, "\" is locked"}));
            break;
        case 8: {
            const Module& place = plan_.modules[static_cast<std::size_t>(plan_.Near(plan_.standards, position_))];
            out.Comment(Cat({" see also ", place.name}));
            break;
        }
        case 9:
            out.Comment(Cat({" only the ", noun, " here, the ", other, " comes later with the rest"}));
            break;
        case 10:
            out.Comment(Cat({" not needed any more since version ", std::to_string(random_.Between(1, 4)), ".",
                             std::to_string(random_.Between(0, 9))}));
            break;
        case 11:
            out.Comment(Cat({" is there any ", noun, " at all? If not the ", other, " decides"}));
            break;
        case 12:
            out.Comment(Cat({" the same as with the ", other, ", but without the ", noun}));
            break;
        case 13:
            out.Comment(Cat({" ", noun, " -> ", other}));
            break;
        case 14:
            out.Comment(Cat({" workaround: the ", other, " keeps the ", noun, " open otherwise"}));
            break;
        default: {
            // Code that somebody switched off and nobody dared to delete.
            const std::vector<Variable>& locals = scope_.Locals();
            const std::string name = locals.empty() ? std::string("Flag") : random_.Of(locals).name;
            switch (random_.Below(4)) {
                case 0:
                    out.Comment(Cat({"    ", name, " = ", name, " + 1"}));
                    break;
                case 1:
                    out.Comment(Cat({"MsgBox \"", noun, ": \" & ", name}));
                    break;
                case 2:
                    out.Comment(Cat({"    If ", name, " = 0 Then Exit ", Kind()}));
                    break;
                default:
                    out.Comment(Cat({" Debug.Print \"", noun, "\", ", name}));
            }
        }
    }
}

void ProcedureWriter::Remarks(int nesting) {
    const int lines = out_.Lines() + body_.Lines();
    const int comments = out_.Comments() + body_.Comments();
    const int blanks = out_.Blanks() + body_.Blanks();
    const bool wantsComment = comments * 100 < lines * scope_.Owner().style.comments;
    const bool wantsBlank = blanks * 100 < lines * 11 && nesting < 3;
    if (wantsBlank && !body_.EndsWithBlank() && body_.Lines() != opened_ && random_.Chance(30))
        body_.Blank();
    if (wantsComment && !body_.EndsWithComment() && random_.Chance(55)) {
        const int count = random_.Weighted({70, 20, 10}) + 1;
        for (int i = 0; i < count; ++i)
            RemarkLine(body_);
    }
}

void ProcedureWriter::Statements(int lines, int nesting) {
    const int end = body_.Lines() + lines;
    // An empty body happens, in handlers that were made by a double click.
    if (nesting == 0 && lines <= 3 && random_.Chance(10))
        return;
    while (body_.Lines() < end) {
        Remarks(nesting);
        OneStatement(end - body_.Lines(), nesting);
    }
}

void ProcedureWriter::OneStatement(int space, int nesting) {
    const bool mayNest = space >= 4 && nesting < DeepestNesting;
    if (mayNest && random_.Chance(space > 10 ? 42 : 26)) {
        // A block takes some of the room, seldom all of it.
        const int part = std::max(4, space > 12 ? random_.Between(space / 4, space * 3 / 4) : space);
        switch (random_.Weighted({44, 15, 6, 8, 11, 10, 2, 4})) {
            case 0:
                IfBlock(part, nesting);
                return;
            case 1:
                ForBlock(part, nesting);
                return;
            case 2:
                ForEachBlock(part, nesting);
                return;
            case 3:
                LoopBlock(part, nesting);
                return;
            case 4:
                SelectBlock(part, nesting);
                return;
            case 5:
                WithBlock(part, nesting);
                return;
            case 6:
                if (part < 6)
                    break;
                FileBlock();
                return;
            default:
                RecordsetBlock(part, nesting);
                return;
        }
    }
    SimpleStatement();
}

void ProcedureWriter::SimpleStatement() {
    const Module& owner = scope_.Owner();
    std::string made;
    switch (random_.Weighted({26, 18, 12, 9, 8, 5, 3, 3, 3, 3, 2, 2, 2, 3, 8})) {
        case 0: {
            const Type type = plan_.BasicType();
            const std::string target = scope_.Target(type);
            std::string value = scope_.Value(type);
            if (value == target)
                value = scope_.Value(type);
            if (value == target)
                break;
            made = Cat({target, " = ", value});
            if (random_.Chance(4))
                made += Cat({"   ' ", Spoken(Noun(random_))});
            break;
        }
        case 1:
            made = scope_.CallStatement();
            break;
        case 2:
            made = scope_.ObjectStatement();
            break;
        case 3:
            made = scope_.ControlStatement();
            break;
        case 4: {
            const std::string condition = scope_.Condition();
            if (random_.Chance(45)) {
                made = Cat({"If ", condition, " Then Exit ", Kind()});
            } else {
                const Type type = plan_.BasicType();
                const std::string target = scope_.Target(type);
                const std::string value = scope_.Value(type, 1);
                made = value == target ? Cat({"If ", condition, " Then Exit ", Kind()})
                                       : Cat({"If ", condition, " Then ", target, " = ", value});
            }
            break;
        }
        case 5: {
            const std::string counter = scope_.Exact(random_.Chance(60) ? Long : Integer);
            made = Cat({counter, " = ", counter, random_.Chance(80) ? " + 1" : " - 1"});
            break;
        }
        case 6:
            QueryText();
            return;
        case 7:
            made =
                random_.Chance(50)
                    ? Cat({"MsgBox ", scope_.Value(String), random_.Chance(50) ? ", vbInformation" : ", vbExclamation"})
                    : Cat({"Debug.Print ", scope_.Value(String)});
            break;
        case 8:
            LateBound();
            return;
        case 9: {
            const Variable* array = scope_.Find(plan_.BasicType(), true, true);
            if (array && !array->isFixed && !array->isStatic) {
                const std::string name = array->name;
                made = Cat({"ReDim ", random_.Chance(60) ? "Preserve " : "", name, "(", scope_.Value(Long, 1), ")"});
            }
            break;
        }
        case 10: {
            if (owner.events.empty())
                break;
            const EventDeclaration& event = random_.Of(owner.events);
            const std::string arguments = scope_.Arguments(event.parameters, 1);
            made = Cat({"RaiseEvent ", event.name, arguments.empty() ? "" : Cat({"(", arguments, ")"})});
            break;
        }
        case 11: {
            const std::string first = scope_.Exact(Long);
            const std::string second = scope_.Exact(Integer);
            made = Cat({first, " = ", scope_.NumberLiteral(), ": ", second, " = 0"});
            break;
        }
        case 12:
            TraceBlock();
            return;
        case 14:
            made = scope_.CallAssignment();
            break;
        default: {
            if (plan_.forms.empty())
                break;
            const Module& form = plan_.modules[static_cast<std::size_t>(plan_.Near(plan_.forms, position_))];
            if (&form == &owner)
                made = random_.Chance(50) ? "Unload Me" : "Me.Refresh";
            else if (random_.Chance(30))
                made = Cat({"Unload ", form.name});
            else
                made = Cat({form.name, ".Show", random_.Chance(60) ? " vbModal" : ""});
        }
    }
    if (made.empty()) {
        const Variable* flag = random_.Chance(40) ? scope_.Find(Boolean, true) : nullptr;
        if (flag) {
            made = Cat({flag->name, " = ", random_.Chance(50) ? "True" : "False"});
        } else {
            const bool isText = random_.Chance(50);
            const std::string target = scope_.Target(isText ? String : Long);
            made = Cat({target, " = ", isText ? scope_.StringLiteral() : scope_.NumberLiteral()});
        }
    }
    Say(made);
}

void ProcedureWriter::QueryText() {
    const std::string query = scope_.Exact(String);
    const std::string table = Cat({"tbl", Noun(random_)});
    const std::string field = Cat({Noun(random_), random_.Chance(50) ? "ID" : "Name"});
    const std::string value = scope_.Value(String, 2);
    if (random_.Chance(45)) {
        Say(Cat({query, " = \"SELECT * FROM ", table, " WHERE ", field, " = '\" & ", value, " & \"'\""}));
        return;
    }
    Say(Cat({query, " = \"SELECT ", field, ", ", Noun(random_), " FROM ", table, "\""}));
    if (random_.Chance(60))
        body_.Statement(Cat({query, " = ", query, " & \" WHERE ", field, " = \" & ", scope_.Value(Long, 2)}));
    Say(Cat({query, " = ", query, " & \" ORDER BY ", field, "\""}));
}

void ProcedureWriter::TraceBlock() {
    for (const std::string& line : scope_.TakeBefore())
        body_.Statement(line);
    body_.Raw(random_.Chance(70) ? "#If TRACE_ON Then" : "#If DEMO Then");
    body_.Statement(Cat({"Debug.Print \"", procedure_.name, "\"; Timer"}));
    if (random_.Chance(25)) {
        body_.Raw("#Else");
        body_.Statement("DoEvents");
    }
    body_.Raw("#End If");
}

void ProcedureWriter::LateBound() {
    // What hides behind an Object nobody can tell: any class with a member of that name.
    const std::string object = scope_.Exact(AnyObject);
    const std::string_view property = random_.Chance(60) ? CommonProperty(random_) : Noun(random_);
    switch (random_.Below(4)) {
        case 0:
            Say(Cat({object, ".", CommonMethod(random_)}));
            break;
        case 1:
            Say(Cat({object, ".", property, " = ", scope_.Value(plan_.BasicType(), 1)}));
            break;
        case 2: {
            const std::string target = scope_.Target(String);
            Say(Cat({target, " = ", object, ".", property}));
            break;
        }
        default:
            Say(Cat({"If ", object, ".", property, " = ", scope_.NumberLiteral(), " Then ", object, ".",
                     CommonMethod(random_)}));
    }
}

void ProcedureWriter::IfBlock(int space, int nesting) {
    const std::string condition = scope_.Condition();
    Say(Cat({"If ", condition, " Then"}));
    const int inner = space - 2;
    const int branches = inner >= 10  ? random_.Weighted({45, 40, 15}) + 1
                         : inner >= 3 ? random_.Weighted({65, 35}) + 1
                                      : 1;
    for (int branch = 0; branch < branches; ++branch) {
        if (branch > 0) {
            const bool isLast = branch + 1 == branches;
            if (isLast && random_.Chance(70)) {
                body_.Statement("Else");
            } else {
                const std::string other = scope_.Condition();
                Say(Cat({"ElseIf ", other, " Then"}));
            }
        }
        Inside((inner - branches + 1) / branches, nesting);
    }
    body_.Statement("End If");
}

void ProcedureWriter::ForBlock(int space, int nesting) {
    const Variable* array = random_.Chance(35) ? scope_.Find(plan_.BasicType(), false, true) : nullptr;
    std::string range = array ? Cat({"LBound(", array->name, ") To UBound(", array->name, ")"}) : std::string();
    if (range.empty())
        range = Cat({random_.Chance(60) ? "1" : "0", " To ",
                     random_.Chance(30) ? std::to_string(random_.Between(2, 40)) : scope_.Value(Long, 1),
                     random_.Chance(6) ? " Step 2" : ""});
    const std::string counter = scope_.EnterLoop(random_.Chance(50) ? Integer : Long);
    Say(Cat({"For ", counter, " = ", range}));
    Inside(space - 2, nesting);
    if (random_.Chance(12)) {
        ++body_.depth;
        const std::string condition = scope_.Condition(1);
        Say(Cat({"If ", condition, " Then Exit For"}));
        --body_.depth;
    }
    body_.Statement(random_.Chance(60) ? Cat({"Next ", counter}) : std::string("Next"));
    scope_.LeaveLoop();
}

void ProcedureWriter::ForEachBlock(int space, int nesting) {
    const std::string items = scope_.Exact(Collection);
    const int target = plan_.Near(plan_.classes, position_);
    std::string item;
    if (target >= 0 && target != position_ && random_.Chance(60)) {
        item = scope_.NewLocal({TypeKind::Class, target}).name;
        // The loop sets it; New before it would be one object too many.
        for (const std::string& line : scope_.TakeBefore()) {
            if (!line.starts_with(Cat({"Set ", item, " = "})))
                body_.Statement(line);
        }
    } else {
        item = scope_.Exact(random_.Chance(60) ? Type{TypeKind::Variant, -1} : AnyObject);
    }
    Say(Cat({"For Each ", item, " In ", items}));
    Inside(space - 2, nesting);
    body_.Statement("Next");
}

void ProcedureWriter::LoopBlock(int space, int nesting) {
    const std::string condition = scope_.Condition();
    switch (random_.Weighted({50, 25, 25})) {
        case 0:
            Say(Cat({random_.Chance(75) ? "Do While " : "Do Until ", condition}));
            Inside(space - 2, nesting);
            body_.Statement("Loop");
            break;
        case 1:
            Say("Do");
            Inside(space - 2, nesting);
            body_.Statement(Cat({random_.Chance(60) ? "Loop Until " : "Loop While ", condition}));
            break;
        default:
            Say(Cat({"While ", condition}));
            Inside(space - 2, nesting);
            body_.Statement("Wend");
    }
}

void ProcedureWriter::SelectBlock(int space, int nesting) {
    const Module& owner = scope_.Owner();
    // Values that may need lines before them have no place between Select and the first Case: only literals there.
    Type type = random_.Chance(60) ? Long : String;
    if (!owner.enumerations.empty() && random_.Chance(60))
        type = {TypeKind::Enumeration, random_.Of(owner.enumerations)};
    const std::string value = scope_.Value(type, 1);
    Say(Cat({"Select Case ", value}));
    ++body_.depth;
    const int cases = std::clamp(space / random_.Between(3, 6), 2, 12);
    const bool isShort = space < cases * 2 + 2;
    for (int i = 0; i < cases; ++i) {
        std::string label;
        if (i + 1 == cases && random_.Chance(60))
            label = "Else";
        else if (type.kind == TypeKind::Enumeration)
            label = random_.Of(plan_.enumerations[static_cast<std::size_t>(type.index)].members);
        else if (type == String)
            label = Cat({"\"", Noun(random_), "\""});
        else
            label = random_.Chance(20) ? Cat({std::to_string(i * 10), " To ", std::to_string(i * 10 + 9)})
                                       : Cat({std::to_string(i), random_.Chance(15) ? ", 99" : ""});
        if (isShort && random_.Chance(60)) {
            body_.Statement(Cat({"Case ", label, ": ", scope_.Exact(String), " = ", scope_.StringLiteral()}));
            for (const std::string& line : scope_.TakeBefore())
                body_.Statement(line);
            continue;
        }
        body_.Statement(Cat({"Case ", label}));
        Inside((space - 2 - cases) / cases, nesting);
    }
    --body_.depth;
    body_.Statement("End Select");
}

void ProcedureWriter::WithBlock(int space, int nesting) {
    const std::optional<Variable> subject = scope_.WithSubject();
    if (!subject) {
        SimpleStatement();
        return;
    }
    Say(Cat({"With ", subject->name}));
    ++body_.depth;
    const int end = body_.Lines() + std::min(space - 2, 12);
    while (body_.Lines() < end) {
        const std::string statement = scope_.MemberStatement(subject->type);
        if (!statement.empty())
            Say(statement);
        if (statement.empty() || random_.Chance(20))
            SimpleStatement();
    }
    --body_.depth;
    body_.Statement("End With");
    if (space > 16)
        Statements(space - 14, nesting);
}

void ProcedureWriter::FileBlock() {
    const std::string handle = scope_.Exact(Integer);
    const std::string line = scope_.Exact(String);
    const std::string path = scope_.Value(String, 1);
    Say(Cat({handle, " = FreeFile"}));
    if (random_.Chance(50)) {
        Say(Cat({"Open ", path, " For Input As #", handle}));
        body_.Statement(Cat({"Do While Not EOF(", handle, ")"}));
        ++body_.depth;
        body_.Statement(Cat({"Line Input #", handle, ", ", line}));
        SimpleStatement();
        --body_.depth;
        body_.Statement("Loop");
    } else {
        Say(Cat({"Open ", path, random_.Chance(50) ? " For Output As #" : " For Append As #", handle}));
        const std::string value = scope_.Value(String);
        Say(Cat({"Print #", handle, ", ", value}));
    }
    body_.Statement(Cat({"Close #", handle}));
}

void ProcedureWriter::RecordsetBlock(int space, int nesting) {
    const std::string rows = scope_.Exact(Recordset);
    QueryText();
    const std::string query = scope_.Exact(String);
    Say(Cat({rows, ".Open ", query, ", gcnnMain, adOpenForwardOnly"}));
    body_.Statement(Cat({"Do While Not ", rows, ".EOF"}));
    ++body_.depth;
    const std::string target = scope_.Target(String);
    Say(Cat({target, " = ", rows, "!", Noun(random_), " & \"\""}));
    if (space > 9)
        Statements(space - 9, nesting + 1);
    Say(Cat({rows, ".MoveNext"}));
    --body_.depth;
    body_.Statement("Loop");
    body_.Statement(Cat({rows, ".Close"}));
}

}  // namespace generate

#include "generate_project_plan.h"

#include <algorithm>
#include <cmath>
#include <utility>

// The plan is made in rounds over all modules: names and sizes; types; declarations and controls; procedures. Each
// round may use what the earlier ones made, in any module.

namespace generate {

namespace {

// An API function with its arguments as "name:type" words. L is a Long, S a String, R a Long that comes back,
// A is "As Any". The last letter of the head says what the function returns, "-" that it is a Sub.
struct ApiFunction {
    std::string_view name;
    std::string_view library;
    std::string_view alias;
    std::string_view arguments;
    char result;
};

constexpr std::array<ApiFunction, 26> ApiFunctions = {{
    {"GetTickCount", "kernel32", "", "", 'L'},
    {"Sleep", "kernel32", "", "dwMilliseconds:L", '-'},
    {"SendMessage", "user32", "SendMessageA", "hWnd:L wMsg:L wParam:L lParam:A", 'L'},
    {"PostMessage", "user32", "PostMessageA", "hWnd:L wMsg:L wParam:L lParam:L", 'L'},
    {"FindWindow", "user32", "FindWindowA", "lpClassName:S lpWindowName:S", 'L'},
    {"GetWindowText", "user32", "GetWindowTextA", "hWnd:L lpString:S cch:L", 'L'},
    {"SetWindowPos", "user32", "", "hWnd:L hWndInsertAfter:L x:L y:L cx:L cy:L wFlags:L", 'L'},
    {"SetWindowText", "user32", "SetWindowTextA", "hWnd:L lpString:S", 'L'},
    {"GetSystemMetrics", "user32", "", "nIndex:L", 'L'},
    {"GetWindowLong", "user32", "GetWindowLongA", "hWnd:L nIndex:L", 'L'},
    {"SetWindowLong", "user32", "SetWindowLongA", "hWnd:L nIndex:L dwNewLong:L", 'L'},
    {"LockWindowUpdate", "user32", "", "hwndLock:L", 'L'},
    {"GetAsyncKeyState", "user32", "", "vKey:L", 'L'},
    {"ShellExecute", "shell32.dll", "ShellExecuteA",
     "hWnd:L lpOperation:S lpFile:S lpParameters:S lpDirectory:S nShowCmd:L", 'L'},
    {"CopyMemory", "kernel32", "RtlMoveMemory", "Destination:A Source:A Length:L", '-'},
    {"GetComputerName", "kernel32", "GetComputerNameA", "lpBuffer:S nSize:R", 'L'},
    {"GetUserName", "advapi32.dll", "GetUserNameA", "lpBuffer:S nSize:R", 'L'},
    {"GetTempPath", "kernel32", "GetTempPathA", "nBufferLength:L lpBuffer:S", 'L'},
    {"GetPrivateProfileString", "kernel32", "GetPrivateProfileStringA",
     "lpApplicationName:S lpKeyName:S lpDefault:S lpReturnedString:S nSize:L lpFileName:S", 'L'},
    {"WritePrivateProfileString", "kernel32", "WritePrivateProfileStringA",
     "lpApplicationName:S lpKeyName:S lpString:S lpFileName:S", 'L'},
    {"CloseHandle", "kernel32", "", "hObject:L", 'L'},
    {"GetDC", "user32", "", "hWnd:L", 'L'},
    {"ReleaseDC", "user32", "", "hWnd:L hdc:L", 'L'},
    {"BitBlt", "gdi32", "", "hDestDC:L x:L y:L nWidth:L nHeight:L hSrcDC:L xSrc:L ySrc:L dwRop:L", 'L'},
    {"sndPlaySound", "winmm.dll", "sndPlaySoundA", "lpszSoundName:S uFlags:L", 'L'},
    {"GetVolumeSerial", "kernel32", "GetVolumeInformationA", "lpRootPathName:S lpNumber:R", 'L'},
}};

struct ControlSort {
    std::string_view className;
    std::string_view prefix;
    int weight;
};

constexpr std::array<ControlSort, 12> ControlSorts = {{
    {"VB.TextBox", "txt", 24},
    {"VB.Label", "lbl", 24},
    {"VB.CommandButton", "cmd", 16},
    {"VB.ComboBox", "cbo", 8},
    {"VB.CheckBox", "chk", 7},
    {"VB.OptionButton", "opt", 5},
    {"VB.ListBox", "lst", 4},
    {"VB.PictureBox", "pic", 3},
    {"VB.Timer", "tmr", 2},
    {"MSComctlLib.ListView", "lvw", 4},
    {"MSComctlLib.TreeView", "tvw", 2},
    {"MSComctlLib.StatusBar", "sbr", 1},
}};

constexpr std::array<std::string_view, 8> StandardSuffixes = {"", "", "", "Tools", "Utils", "Data", "Calc", "IO"};
constexpr std::array<std::string_view, 8> ClassSuffixes = {"", "", "s", "Item", "Manager", "Reader", "Writer", "Info"};
constexpr std::array<std::string_view, 8> FormSuffixes = {"",       "",       "Edit",  "List",
                                                          "Search", "Select", "Print", "Details"};
constexpr std::array<std::string_view, 4> ControlSuffixes = {"Box", "Grid", "Field", "Bar"};

// Half of the procedures are short, some are far too long, as nobody wanted to touch them any more.
int ProcedureWeight(Random& random) {
    switch (random.Weighted({40, 35, 18, 7})) {
        case 0:
            return random.Between(7, 16);
        case 1:
            return random.Between(16, 36);
        case 2:
            return random.Between(36, 70);
        default:
            return random.Between(70, 120);
    }
}

int ModuleSize(Random& random) {
    switch (random.Weighted({22, 28, 25, 15, 7, 3})) {
        case 0:
            return random.Between(150, 300);
        case 1:
            return random.Between(300, 600);
        case 2:
            return random.Between(600, 1000);
        case 3:
            return random.Between(1000, 1600);
        case 4:
            return random.Between(1600, 2600);
        default:
            return random.Between(2600, 4000);
    }
}

// 9 standard modules, 6 classes, 4 forms and a user control in some order; `first` brings one of each to the front,
// so that a small project has them all.
std::vector<ModuleKind> ModuleDeck(Random& random, bool first) {
    using enum ModuleKind;
    std::vector<ModuleKind> deck = {Standard, Form,     Class,    Control,  Standard, Standard, Standard,
                                    Standard, Standard, Standard, Standard, Standard, Class,    Class,
                                    Class,    Class,    Class,    Form,     Form,     Form};
    const std::size_t fixed = first ? 4 : 0;
    for (std::size_t i = deck.size() - 1; i > fixed; --i)
        std::swap(deck[i], deck[fixed + static_cast<std::size_t>(random.Below(static_cast<int>(i - fixed) + 1))]);
    return deck;
}

// How many members of a project have the same name at most. It is the same for every size: a possible call reaches each
// holder of its name, and what is measured over the sizes is to be the growth of the work for an edge, not of their
// number.
constexpr int kMostHolders = 9;

}  // namespace

bool IsWholeNumber(Type type) {
    return type.kind == TypeKind::Integer || type.kind == TypeKind::Long || type.kind == TypeKind::Byte;
}

bool IsFraction(Type type) {
    return type.kind == TypeKind::Double || type.kind == TypeKind::Currency;
}

bool IsObject(Type type) {
    return type.kind == TypeKind::Object || type.kind == TypeKind::Collection || type.kind == TypeKind::Recordset ||
           type.kind == TypeKind::Class;
}

std::string_view Prefix(Type type, const Style& style) {
    struct Prefixes {
        std::string_view three, one;
    };
    static constexpr std::array<Prefixes, 15> ByKind = {{{"int", "i"},
                                                         {"lng", "l"},
                                                         {"byt", "by"},
                                                         {"dbl", "d"},
                                                         {"cur", "c"},
                                                         {"str", "s"},
                                                         {"bln", "b"},
                                                         {"dat", "dt"},
                                                         {"var", "v"},
                                                         {"obj", "o"},
                                                         {"col", "col"},
                                                         {"rs", "rs"},
                                                         {"udt", "u"},
                                                         {"enm", "e"},
                                                         {"obj", "o"}}};
    const Prefixes& prefixes = ByKind[static_cast<std::size_t>(type.kind)];
    // Who names without prefixes still writes rsOrder and colItems.
    if (style.notation == 3 && type.kind != TypeKind::Recordset && type.kind != TypeKind::Collection)
        return "";
    return style.notation == 0 ? prefixes.three : prefixes.one;
}

std::string_view TypeSign(Type type) {
    switch (type.kind) {
        case TypeKind::Integer:
            return "%";
        case TypeKind::Long:
            return "&";
        case TypeKind::Double:
            return "#";
        case TypeKind::Currency:
            return "@";
        case TypeKind::String:
            return "$";
        default:
            return "";
    }
}

Plan::Plan(std::size_t lines, unsigned seed) : random(seed), pool(random, kMostHolders) {
    projectName = Cat({Noun(random), "Desk"});
    PlanModules(lines);
    const int count = static_cast<int>(modules.size());
    for (int i = 0; i < count; ++i)
        PlanTypes(i);
    for (int i = 0; i < count; ++i) {
        PlanDeclarations(i);
        PlanControls(i);
    }
    for (int i = 0; i < count; ++i)
        PlanProcedures(i);
}

int Plan::NearIndex(std::size_t count, int module) {
    const int last = static_cast<int>(count) - 1;
    if (random.Chance(8))
        return random.Between(0, last);
    if (random.Chance(15))  // the helpers that everybody uses
        return random.Between(0, std::min(last, 5));
    const int middle = static_cast<int>(static_cast<std::size_t>(module) * count / modules.size());
    return std::clamp(middle + random.Between(-7, 7), 0, last);
}

int Plan::Near(const std::vector<int>& list, int module) {
    return list.empty() ? -1 : list[static_cast<std::size_t>(NearIndex(list.size(), module))];
}

std::string Plan::TypeName(Type type) const {
    switch (type.kind) {
        case TypeKind::Integer:
            return "Integer";
        case TypeKind::Long:
            return "Long";
        case TypeKind::Byte:
            return "Byte";
        case TypeKind::Double:
            return "Double";
        case TypeKind::Currency:
            return "Currency";
        case TypeKind::String:
            return "String";
        case TypeKind::Boolean:
            return "Boolean";
        case TypeKind::Date:
            return "Date";
        case TypeKind::Variant:
            return "Variant";
        case TypeKind::Object:
            return "Object";
        case TypeKind::Collection:
            return "Collection";
        case TypeKind::Recordset:
            return "ADODB.Recordset";
        case TypeKind::Record:
            return records[static_cast<std::size_t>(type.index)].name;
        case TypeKind::Enumeration:
            return enumerations[static_cast<std::size_t>(type.index)].name;
        case TypeKind::Class:
            return modules[static_cast<std::size_t>(type.index)].name;
    }
    return {};
}

Type Plan::BasicType() {
    static constexpr std::array<TypeKind, 9> Kinds = {TypeKind::Long,    TypeKind::String,  TypeKind::Integer,
                                                      TypeKind::Boolean, TypeKind::Double,  TypeKind::Currency,
                                                      TypeKind::Date,    TypeKind::Variant, TypeKind::Byte};
    return {Kinds[static_cast<std::size_t>(random.Weighted({26, 30, 16, 11, 5, 5, 4, 4, 1}))], -1};
}

Type Plan::AnyType(int module, bool mayBeRecord) {
    switch (random.Weighted({80, mayBeRecord ? 6 : 0, 7, 8, 3})) {
        case 1:
            if (!publicRecords_.empty())
                return {TypeKind::Record,
                        publicRecords_[static_cast<std::size_t>(NearIndex(publicRecords_.size(), module))]};
            break;
        case 2:
            if (!publicEnumerations_.empty())
                return {TypeKind::Enumeration,
                        publicEnumerations_[static_cast<std::size_t>(NearIndex(publicEnumerations_.size(), module))]};
            break;
        case 3:
            if (!classes.empty())
                return {TypeKind::Class, Near(classes, module)};
            break;
        case 4:
            return {random.Chance(40)   ? TypeKind::Object
                    : random.Chance(50) ? TypeKind::Collection
                                        : TypeKind::Recordset,
                    -1};
        default:
            break;
    }
    return BasicType();
}

void Plan::PlanModules(std::size_t lines) {
    std::vector<ModuleKind> deck;
    std::string group;
    int groupLeft = 0;
    std::size_t planned = 0;
    while (planned < lines || modules.empty()) {
        if (deck.empty()) {
            deck = ModuleDeck(random, modules.empty());
            std::reverse(deck.begin(), deck.end());
        }
        Module module;
        module.kind = deck.back();
        deck.pop_back();
        const std::size_t left = lines - planned;
        // One module is never a third of a small project.
        module.lines = std::min(ModuleSize(random), std::max(300, static_cast<int>(lines / 7)));
        if (left < static_cast<std::size_t>(module.lines) + 150)
            module.lines = static_cast<int>(std::max<std::size_t>(left, 40));
        planned += static_cast<std::size_t>(module.lines);

        if (groupLeft-- <= 0) {
            group = Noun(random);
            groupLeft = random.Between(3, 8);
        }
        module.subject = random.Chance(45) ? group : Cat({group, Noun(random)});
        if (module.subject == group + group)
            module.subject = group;
        const bool isMain = modules.empty();
        std::string name = module.subject;
        std::string_view extension;
        const int position = static_cast<int>(modules.size());
        switch (module.kind) {
            case ModuleKind::Standard:
                name = isMain ? "modMain" : Cat({random.Chance(85) ? "mod" : "bas", name, random.Of(StandardSuffixes)});
                extension = ".bas";
                standards.push_back(position);
                break;
            case ModuleKind::Class:
                name = Cat({random.Chance(85) ? "cls" : "C", name, random.Of(ClassSuffixes)});
                extension = ".cls";
                classes.push_back(position);
                break;
            case ModuleKind::Form:
                name = forms.empty() ? "frmMain" : Cat({"frm", name, random.Of(FormSuffixes)});
                extension = ".frm";
                forms.push_back(position);
                break;
            case ModuleKind::Control:
                name = Cat({"ctl", name, random.Of(ControlSuffixes)});
                extension = ".ctl";
                userControls.push_back(position);
                break;
        }
        module.name = pool.TakeUnique(projectNames_, name);
        module.fileName = Cat({module.name, extension});
        module.names.insert(Lower(module.name));

        Style& style = module.style;
        style.notation = random.Weighted({60, 18, 8, 14});
        style.header = random.Weighted({16, 38, 30, 16});
        style.indent = random.Chance(85) ? 4 : random.Between(2, 3);
        style.comments = random.Between(14, 36);
        style.handlers = random.Weighted({30, 40, 30}) * 35;
        style.saysCall = random.Chance(25);
        modules.push_back(std::move(module));
    }
}

void Plan::PlanTypes(int position) {
    Module& module = modules[static_cast<std::size_t>(position)];
    const bool isStandard = module.kind == ModuleKind::Standard;
    const int size = module.lines / 500;

    const int enumerationCount = isStandard                         ? random.Between(0, 1 + size)
                                 : module.kind == ModuleKind::Class ? random.Between(0, 1 + size / 2)
                                                                    : (random.Chance(15) ? 1 : 0);
    for (int i = 0; i < enumerationCount; ++i) {
        Enumeration enumeration;
        enumeration.module = position;
        enumeration.isPublic = module.kind != ModuleKind::Form && random.Chance(75);
        const std::string_view noun = Noun(random);
        const std::string base = Cat({random.Chance(60) ? module.subject : std::string(Quality(random)), noun});
        enumeration.name = pool.TakeUnique(module.names, Cat({random.Chance(70) ? "enm" : "e", base}));
        const std::string prefix = Lower(Cat({module.subject.substr(0, 2), noun.substr(0, 1)}));
        const int memberCount = random.Between(3, 9);
        for (int m = 0; m < memberCount; ++m) {
            const std::string wanted = Cat({prefix, random.Chance(50) ? Quality(random) : Noun(random)});
            enumeration.members.push_back(enumeration.isPublic ? pool.TakeUnique(module.names, wanted)
                                                               : pool.Take(module.names, wanted));
        }
        if (enumeration.isPublic)
            publicEnumerations_.push_back(static_cast<int>(enumerations.size()));
        module.enumerations.push_back(static_cast<int>(enumerations.size()));
        enumerations.push_back(std::move(enumeration));
    }

    const int recordCount = isStandard ? random.Between(0, 1 + size) : (random.Chance(20) ? 1 : 0);
    for (int i = 0; i < recordCount; ++i) {
        Record record;
        record.module = position;
        record.isPublic = isStandard && random.Chance(70);
        record.name = pool.TakeUnique(module.names, Cat({random.Chance(60) ? "typ" : "T", module.subject,
                                                         random.Chance(50) ? "Info" : Noun(random)}));
        NameSet members;
        const int memberCount = random.Between(3, 12);
        for (int m = 0; m < memberCount; ++m) {
            Variable member;
            member.type = AnyType(position, true);
            // A record inside records: only one that stands in a module read before, or there would be circles.
            if (member.type.kind == TypeKind::Record &&
                records[static_cast<std::size_t>(member.type.index)].module >= position)
                member.type = BasicType();
            member.isArray = member.type.kind != TypeKind::Record && random.Chance(7);
            member.isFixed = member.isArray && random.Chance(60);
            const std::string_view noun = Noun(random);
            const std::string word = random.Chance(30) ? NounPair(random)
                                     : random.Chance(25)
                                         ? Cat({Quality(random), noun})
                                         : std::string(random.Chance(25) ? CommonProperty(random) : noun);
            member.name = pool.Take(members, Cat({Prefix(member.type, module.style), word}));
            record.members.push_back(std::move(member));
        }
        if (record.isPublic)
            publicRecords_.push_back(static_cast<int>(records.size()));
        module.records.push_back(static_cast<int>(records.size()));
        records.push_back(std::move(record));
    }
}

std::string Plan::MemberName(const Module& module, std::string_view prefix) {
    const std::string_view noun = Noun(random);
    switch (random.Weighted({38, 12, 28, 22})) {
        case 0:
            return Cat({prefix, module.subject, noun});
        case 1:
            return Cat({prefix, noun, random.Chance(30) ? "Text" : ""});
        case 2:
            return Cat({prefix, NounPair(random)});
        default:
            return Cat({prefix, Quality(random), noun});
    }
}

void Plan::PlanDeclarations(int position) {
    Module& module = modules[static_cast<std::size_t>(position)];
    const bool isStandard = module.kind == ModuleKind::Standard;

    const int constantCount = random.Between(0, 2 + module.lines / (isStandard ? 120 : 300));
    for (int i = 0; i < constantCount; ++i) {
        Constant constant;
        constant.isPublic = isStandard && random.Chance(45);
        const std::string words = Upper(Cat({Quality(random), "_", Noun(random)}));
        switch (random.Weighted({50, 35, 15})) {
            case 0:
                constant.type = {random.Chance(70) ? TypeKind::Long : TypeKind::Integer, -1};
                constant.name = Cat({random.Chance(40) ? "MAX_" : random.Chance(30) ? "DEFAULT_" : "", words});
                constant.value =
                    random.Chance(15)
                        ? Cat({"&H", std::to_string(random.Between(1, 9)), "00", random.Chance(50) ? "&" : ""})
                        : std::to_string(random.Between(0, 5000));
                break;
            case 1:
                constant.type = {TypeKind::String, -1};
                constant.name = Cat({random.Chance(40) ? "SQL_" : random.Chance(40) ? "KEY_" : "", words});
                constant.value = Cat({"\"", Noun(random), random.Chance(40) ? "\\" : " ", Noun(random), "\""});
                break;
            default:
                constant.type = {TypeKind::Double, -1};
                constant.name = Cat({words, "_FACTOR"});
                constant.value =
                    Cat({std::to_string(random.Between(0, 99)), ".", std::to_string(random.Between(1, 9))});
        }
        constant.name =
            constant.isPublic ? pool.TakeUnique(module.names, constant.name) : pool.Take(module.names, constant.name);
        module.constants.push_back(std::move(constant));
    }

    const int variableCount = random.Between(2, 4 + module.lines / 110);
    for (int i = 0; i < variableCount; ++i) {
        Variable variable;
        variable.isPublic = random.Chance(isStandard ? 35 : 5);
        variable.type = AnyType(position, isStandard || !variable.isPublic);
        if (!module.records.empty() && !variable.isPublic && random.Chance(20))
            variable.type = {TypeKind::Record, random.Of(module.records)};
        // A class's public member can be no array.
        variable.isArray = (isStandard || !variable.isPublic) && !IsObject(variable.type) && random.Chance(14);
        variable.isFixed = variable.isArray && random.Chance(30);
        variable.isNew = variable.type.kind == TypeKind::Collection && random.Chance(60);
        std::string_view scopeLetter;
        if (isStandard && variable.isPublic)
            scopeLetter = "g";
        else if (!variable.isPublic)
            scopeLetter = module.style.notation == 1 && random.Chance(50) ? "m_" : "m";
        const std::string wanted = MemberName(module, Cat({scopeLetter, Prefix(variable.type, module.style)}));
        variable.name =
            isStandard && variable.isPublic ? pool.TakeUnique(module.names, wanted) : pool.Take(module.names, wanted);
        module.variables.push_back(std::move(variable));
    }

    const int declareCount =
        isStandard ? (random.Chance(35) ? random.Between(1, 6) : 0) : (random.Chance(12) ? random.Between(1, 2) : 0);
    for (int i = 0; i < declareCount; ++i) {
        const ApiFunction& api = random.Of(ApiFunctions);
        if (!pool.IsFree(module.names, std::string(api.name)))
            continue;
        Procedure declare;
        declare.kind = ProcedureKind::Declare;
        declare.isPublic = isStandard && pool.Holders(Lower(api.name)) == 0;
        declare.name = pool.Take(module.names, std::string(api.name));
        declare.library = api.library;
        declare.alias = api.alias;
        declare.isSub = api.result == '-';
        declare.result = {TypeKind::Long, -1};
        for (std::size_t begin = 0; begin < api.arguments.size();) {
            std::size_t end = api.arguments.find(' ', begin);
            if (end == std::string_view::npos)
                end = api.arguments.size();
            const std::string_view word = api.arguments.substr(begin, end - begin);
            const char letter = word.back();
            Parameter parameter;
            parameter.name = word.substr(0, word.size() - 2);
            parameter.type = {letter == 'S' ? TypeKind::String : TypeKind::Long, -1};
            parameter.isAny = letter == 'A';
            parameter.passing = letter == 'L' || letter == 'S' ? Passing::ByVal : Passing::Unsaid;
            declare.parameters.push_back(std::move(parameter));
            begin = end + 1;
        }
        module.procedures.push_back(std::move(declare));
    }

    if (!isStandard && random.Chance(module.kind == ModuleKind::Control ? 80 : 30)) {
        const int eventCount = random.Between(1, 3);
        for (int i = 0; i < eventCount; ++i) {
            EventDeclaration event;
            event.name = pool.Take(module.names, random.Chance(50) ? Cat({Noun(random), "Changed"})
                                                                   : Cat({Quality(random), Noun(random)}));
            const int parameterCount = random.Between(0, 2);
            for (int p = 0; p < parameterCount; ++p) {
                Parameter parameter;
                parameter.type = BasicType();
                parameter.name = ParameterName(module, parameter.type, static_cast<std::size_t>(p));
                parameter.passing = Passing::ByVal;
                event.parameters.push_back(std::move(parameter));
            }
            module.events.push_back(std::move(event));
        }
    }
}

void Plan::PlanControls(int position) {
    Module& module = modules[static_cast<std::size_t>(position)];
    const bool isForm = module.kind == ModuleKind::Form;
    if (!isForm && module.kind != ModuleKind::Control)
        return;
    const int blocks = isForm ? std::clamp(module.lines / 34, 3, 60) : std::clamp(module.lines / 70, 1, 12);
    int frame = -1;
    for (int made = 0; made < blocks;) {
        Control control;
        control.caption = Cat({Noun(random), " ", Noun(random)});
        const std::string words = random.Chance(50) ? NounPair(random) : std::string(Noun(random));
        if (random.Chance(9)) {
            control.className = "VB.Frame";
            control.name = pool.Take(module.names, Cat({"fra", words}));
            frame = static_cast<int>(module.controls.size());
            module.controls.push_back(std::move(control));
            ++made;
            continue;
        }
        if (isForm && !userControls.empty() && random.Chance(4)) {
            const Module& userControl = modules[static_cast<std::size_t>(Near(userControls, position))];
            control.className = Cat({projectName, ".", userControl.name});
            control.name = pool.Take(module.names, Cat({userControl.name, "1"}));
            module.controls.push_back(std::move(control));
            ++made;
            continue;
        }
        int sum = 0;
        for (const ControlSort& sort : ControlSorts)
            sum += sort.weight;
        int drawn = random.Below(sum);
        const ControlSort* chosen = ControlSorts.data();
        while (drawn >= chosen->weight)
            drawn -= (chosen++)->weight;
        const bool canRepeat = chosen->className.starts_with("VB.") && chosen->className != "VB.Timer";
        control.className = chosen->className;
        control.count = canRepeat && random.Chance(18) ? random.Between(2, 7) : 1;
        control.container = chosen->className == "VB.Timer" || random.Chance(30) ? -1 : frame;
        const bool isButton = chosen->className == "VB.CommandButton" && random.Chance(40);
        static constexpr std::array<std::string_view, 8> Buttons = {"OK",   "Cancel", "Apply", "Close",
                                                                    "Save", "New",    "Help",  "Search"};
        const std::string_view button = random.Of(Buttons);
        if (isButton)
            control.caption = Cat({"&", button});
        control.name = pool.Take(module.names, Cat({chosen->prefix, isButton ? std::string(button) : words}));
        made += control.count;
        module.controls.push_back(std::move(control));
    }
    if (isForm && (position == forms.front() || random.Chance(25))) {
        static constexpr std::array<std::string_view, 4> Menus = {"File", "Edit", "View", "Extras"};
        const int menuCount = random.Between(1, 4);
        for (int m = 0; m < menuCount; ++m) {
            Control menu;
            menu.className = "VB.Menu";
            menu.caption = Cat({"&", Menus[static_cast<std::size_t>(m)]});
            menu.name = pool.Take(module.names, Cat({"mnu", Menus[static_cast<std::size_t>(m)]}));
            const int parent = static_cast<int>(module.controls.size());
            const std::string parentName = menu.name;
            module.controls.push_back(std::move(menu));
            const int itemCount = random.Between(2, 7);
            for (int i = 0; i < itemCount; ++i) {
                Control item;
                item.className = "VB.Menu";
                const std::string_view noun = Noun(random);
                item.caption = Cat({random.Chance(50) ? "&" : "", noun, random.Chance(40) ? "..." : ""});
                item.name = pool.Take(module.names, Cat({parentName, noun}));
                item.container = parent;
                module.controls.push_back(std::move(item));
            }
        }
    }
}

std::string Plan::ParameterName(const Module& module, Type type, std::size_t number) {
    static constexpr std::array<std::string_view, 14> Plain = {"Index", "Key",   "Value", "ID",   "Text",
                                                               "Mode",  "Flag",  "Count", "Path", "Owner",
                                                               "Start", "Limit", "Level", "Item"};
    std::string_view word = random.Chance(35) ? random.Of(Plain) : Noun(random);
    std::string name = Cat({Prefix(type, module.style), word});
    if (module.style.notation == 3 && random.Chance(50))
        name = Cat({Noun(random), word});
    // Two parameters of one name would not compile; a number is what people resort to.
    if (number > 0)
        name += random.Chance(40) ? std::to_string(number + 1) : std::string(Noun(random));
    return name;
}

std::vector<Parameter> Plan::Parameters(int position, bool canHaveRecords, bool isPublic) {
    const Module& module = modules[static_cast<std::size_t>(position)];
    std::vector<Parameter> parameters;
    NameSet taken;
    const int count = random.Weighted({18, 28, 26, 15, 8, 4, 1});
    bool isOptional = false;
    for (int i = 0; i < count; ++i) {
        Parameter parameter;
        parameter.type = AnyType(position, canHaveRecords);
        if (canHaveRecords && !module.records.empty() && random.Chance(8)) {
            const int own = random.Of(module.records);
            if (!isPublic || records[static_cast<std::size_t>(own)].isPublic)
                parameter.type = {TypeKind::Record, own};
        }
        const bool isRecord = parameter.type.kind == TypeKind::Record;
        parameter.isArray = !IsObject(parameter.type) && random.Chance(4);
        // Records and arrays can't go by value, and an optional one can be neither.
        if (!isRecord && !parameter.isArray) {
            parameter.passing = random.Chance(45)   ? Passing::ByVal
                                : random.Chance(15) ? Passing::ByRef
                                                    : Passing::Unsaid;
            isOptional = isOptional || (i > 0 && i + 1 == count && random.Chance(35));
            parameter.isOptional = isOptional;
        }
        parameter.name = ParameterName(module, parameter.type, static_cast<std::size_t>(i));
        while (!taken.insert(Lower(parameter.name)).second)
            parameter.name += Noun(random);
        parameters.push_back(std::move(parameter));
    }
    if (count > 0 && !isOptional && random.Chance(1)) {
        Parameter rest;
        rest.name = "Args";
        rest.isArray = true;
        rest.isParamArray = true;
        parameters.push_back(std::move(rest));
    }
    return parameters;
}

void Plan::PlanProperty(int position, int share) {
    Module& module = modules[static_cast<std::size_t>(position)];
    const bool isClass = module.kind == ModuleKind::Class;
    Variable backing;
    backing.type = AnyType(position, false);
    std::string wanted = isClass && random.Chance(30) ? std::string(CommonProperty(random))
                         : random.Chance(50)          ? NounPair(random)
                                                      : Cat({Quality(random), Noun(random)});
    if (isClass && backing.type.kind == TypeKind::String && random.Chance(8))
        wanted = "Name";
    Procedure get;
    get.kind = ProcedureKind::Get;
    get.name = pool.Take(module.names, wanted);
    get.isPublic = random.Chance(92);
    get.isFriend = isClass && !get.isPublic;
    get.result = backing.type;
    get.weight = share + random.Weighted({60, 25, 15}) * 2;
    get.isDead = random.Chance(4);
    get.backing = static_cast<int>(module.variables.size());
    backing.name = pool.Take(
        module.names, Cat({module.style.notation == 1 ? "m_" : "m", Prefix(backing.type, module.style), get.name}));
    module.variables.push_back(std::move(backing));
    const bool isWritable = random.Chance(70) && pool.IsFree({}, get.name);
    Procedure let = get;
    module.procedures.push_back(std::move(get));
    if (!isWritable)
        return;
    pool.AddHolder(let.name);
    let.kind = IsObject(let.result) ? ProcedureKind::Set : ProcedureKind::Let;
    let.weight = share + random.Weighted({50, 30, 20}) * 3;
    Parameter value;
    value.type = let.result;
    value.name = random.Chance(60) ? std::string("Value") : Cat({"New", let.name});
    if (module.style.notation == 0)
        value.name = Cat({Prefix(value.type, module.style), value.name});
    value.passing = random.Chance(65) ? Passing::ByVal : Passing::Unsaid;
    let.parameters.push_back(std::move(value));
    module.procedures.push_back(std::move(let));
}

void Plan::PlanHandlers(int position) {
    Module& module = modules[static_cast<std::size_t>(position)];
    const auto add = [&](const std::string& name, std::initializer_list<std::pair<std::string_view, Type>> parameters) {
        if (!module.names.insert(Lower(name)).second)
            return;
        Procedure handler;
        handler.kind = ProcedureKind::Handler;
        handler.name = name;
        for (const auto& [parameterName, type] : parameters) {
            Parameter parameter;
            parameter.name = parameterName;
            parameter.type = type;
            handler.parameters.push_back(std::move(parameter));
        }
        handler.weight = std::max(6, ProcedureWeight(random) * 2 / 3);
        module.procedures.push_back(std::move(handler));
    };
    const Type integer{TypeKind::Integer, -1};

    switch (module.kind) {
        case ModuleKind::Class:
            if (random.Chance(65))
                add("Class_Initialize", {});
            if (random.Chance(45))
                add("Class_Terminate", {});
            break;
        case ModuleKind::Form:
            add("Form_Load", {});
            if (random.Chance(50))
                add("Form_Unload", {{"Cancel", integer}});
            if (random.Chance(30))
                add("Form_Resize", {});
            if (random.Chance(15))
                add("Form_Activate", {});
            if (random.Chance(15))
                add("Form_KeyDown", {{"KeyCode", integer}, {"Shift", integer}});
            break;
        case ModuleKind::Control:
            add("UserControl_Initialize", {});
            add("UserControl_Resize", {});
            break;
        case ModuleKind::Standard:
            break;
    }
    for (const Control& control : module.controls) {
        std::string_view event;
        bool hasKey = false;
        if (control.className == "VB.CommandButton")
            event = "Click";
        else if (control.className == "VB.Menu")
            event = control.container >= 0 ? "Click" : "";
        else if (control.className == "VB.TextBox" && random.Chance(30))
            event = random.Chance(40) ? "Change" : random.Chance(50) ? "GotFocus" : "KeyPress";
        else if ((control.className == "VB.ComboBox" || control.className == "VB.OptionButton") && random.Chance(45))
            event = "Click";
        else if ((control.className == "VB.CheckBox" || control.className == "VB.ListBox") && random.Chance(30))
            event = "Click";
        else if (control.className == "VB.Timer")
            event = "Timer";
        else if (control.className == "MSComctlLib.ListView" && random.Chance(60))
            event = "DblClick";
        if (event.empty())
            continue;
        hasKey = event == "KeyPress";
        const std::string name = Cat({control.name, "_", event});
        if (control.count > 1 && hasKey)
            add(name, {{"Index", integer}, {"KeyAscii", integer}});
        else if (control.count > 1)
            add(name, {{"Index", integer}});
        else if (hasKey)
            add(name, {{"KeyAscii", integer}});
        else
            add(name, {});
    }
    // Somebody else's events, through a variable of the module.
    if (module.kind != ModuleKind::Standard && !classes.empty() && random.Chance(20)) {
        const int source = Near(classes, position);
        const Module& sourceModule = modules[static_cast<std::size_t>(source)];
        if (source != position && !sourceModule.events.empty()) {
            Variable variable;
            variable.type = {TypeKind::Class, source};
            variable.withEvents = true;
            variable.name = pool.Take(module.names, Cat({"mobj", sourceModule.subject}));
            for (const EventDeclaration& event : sourceModule.events) {
                add(Cat({variable.name, "_", event.name}), {});
                module.procedures.back().parameters = event.parameters;
            }
            module.variables.push_back(std::move(variable));
        }
    }
}

void Plan::PlanProcedures(int position) {
    Module& module = modules[static_cast<std::size_t>(position)];
    const bool isStandard = module.kind == ModuleKind::Standard;
    const bool isClass = module.kind == ModuleKind::Class;

    const std::size_t declares = module.procedures.size();
    PlanHandlers(position);
    if (position == 0 && isStandard) {
        Procedure start;
        start.name = "Main";
        module.names.insert("main");
        start.isPublic = true;
        start.isDead = true;  // the program starts there, and nobody calls it
        start.weight = 45;
        module.procedures.push_back(std::move(start));
    }
    int designed = 0;
    for (const Control& control : module.controls)
        designed += 9 * control.count;
    const int codeLines = std::max(20, module.lines - designed - static_cast<int>(module.variables.size()) - 20);
    const std::size_t wanted = declares + static_cast<std::size_t>(std::max(2, codeLines * 10 / 245));

    while (module.procedures.size() < wanted) {
        if (!isStandard && random.Chance(isClass ? 30 : 8)) {
            PlanProperty(position, 5);
            continue;
        }
        Procedure procedure;
        procedure.kind = random.Chance(48) ? ProcedureKind::Function : ProcedureKind::Sub;
        procedure.isPublic = random.Chance(isStandard ? 62 : isClass ? 58 : 22);
        procedure.isFriend = isClass && !procedure.isPublic && random.Chance(10);
        procedure.isDead = random.Chance(5);
        procedure.weight = ProcedureWeight(random);
        const bool canHaveRecords = isStandard || (!procedure.isPublic && !procedure.isFriend);
        procedure.parameters = Parameters(position, canHaveRecords, procedure.isPublic);
        std::string wish;
        if (procedure.kind == ProcedureKind::Function) {
            procedure.result = AnyType(position, canHaveRecords);
            const bool isTest = procedure.result.kind == TypeKind::Boolean;
            wish = MemberName(module, isTest ? (random.Chance(60)   ? "Is"
                                                : random.Chance(50) ? "Has"
                                                                    : "Check")
                                             : AskingVerb(random));
        } else if (isClass && procedure.isPublic && random.Chance(30)) {
            wish = CommonMethod(random);
        } else {
            wish = MemberName(module, DoingVerb(random));
        }
        // Public procedures of standard modules must be told apart by name; a few need the module's name before them.
        procedure.name = isStandard && procedure.isPublic && random.Chance(92) ? pool.TakeUnique(module.names, wish)
                                                                               : pool.Take(module.names, wish);
        module.procedures.push_back(std::move(procedure));
    }

    // Declares stay in front; the others stand as they were added over the years.
    for (std::size_t i = module.procedures.size() - 1; i > declares; --i) {
        const std::size_t other = declares + static_cast<std::size_t>(random.Below(static_cast<int>(i - declares) + 1));
        const bool isAccessor = module.procedures[i].backing >= 0 || module.procedures[other].backing >= 0;
        if (!isAccessor)
            std::swap(module.procedures[i], module.procedures[other]);
    }
}

}  // namespace generate

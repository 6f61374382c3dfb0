// What a generated project consists of, decided before a line of it is written: a body can only call what is known to
// exist in other modules, with the arguments it has there.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "generate_project_names.h"

namespace generate {

enum class ModuleKind { Standard, Class, Form, Control };

enum class TypeKind {
    Integer,
    Long,
    Byte,
    Double,
    Currency,
    String,
    Boolean,
    Date,
    Variant,
    Object,
    Collection,
    Recordset,
    Record,       // index: Plan::records
    Enumeration,  // index: Plan::enumerations
    Class         // index: Plan::modules
};

struct Type {
    TypeKind kind = TypeKind::Variant;
    int index = -1;
    bool operator==(const Type&) const = default;
};

[[nodiscard]] bool IsWholeNumber(Type type);
[[nodiscard]] bool IsFraction(Type type);
[[nodiscard]] bool IsObject(Type type);

/// A variable of a module or procedure, or a member of a record.
struct Variable {
    std::string name;
    Type type;
    bool isPublic = false;
    bool isArray = false;
    bool isStatic = false;
    bool isFixed = false;  // an array with bounds, which ReDim must leave alone
    bool withEvents = false;
    bool isNew = false;
    bool readOnly = false;
};

enum class Passing { Unsaid, ByVal, ByRef };

struct Parameter {
    std::string name;
    Type type;
    Passing passing = Passing::Unsaid;
    bool isArray = false;
    bool isOptional = false;
    bool isParamArray = false;
    bool isAny = false;  // "As Any" of a declare
};

enum class ProcedureKind { Sub, Function, Get, Let, Set, Declare, Handler };

struct Procedure {
    ProcedureKind kind = ProcedureKind::Sub;
    std::string name;
    Type result;  // of what has a value; a Let or Set has it as its last parameter too
    std::vector<Parameter> parameters;
    bool isPublic = false;
    bool isFriend = false;
    bool isDead = false;    // nobody shall call it
    bool isCalled = false;  // somebody does already
    int weight = 0;         // its share of the module's lines
    int backing = -1;       // the module's variable behind an accessor
    bool isSub = false;     // of a declare: it has no value
    std::string_view library;
    std::string_view alias;

    [[nodiscard]] bool HasValue() const {
        return kind == ProcedureKind::Function || kind == ProcedureKind::Get ||
               (kind == ProcedureKind::Declare && !isSub);
    }
};

struct Record {
    std::string name;
    bool isPublic = false;
    int module = 0;
    std::vector<Variable> members;
};

struct Enumeration {
    std::string name;
    bool isPublic = false;
    int module = 0;
    std::vector<std::string> members;
};

struct Constant {
    std::string name;
    Type type;
    bool isPublic = false;
    std::string value;
};

struct EventDeclaration {
    std::string name;
    std::vector<Parameter> parameters;
};

struct Control {
    std::string name;
    std::string className;  // "VB.TextBox"
    std::string caption;
    int count = 1;       // more than 1: a control array
    int container = -1;  // position of the frame it lies on
};

// How the people who wrote a module wrote.
struct Style {
    int notation = 0;  // 0 strName, 1 sName, 2 sName$ with type signs, 3 name
    int header = 0;    // comment above a procedure: 0 none, 1 one line, 2 a block of rules, 3 a list of remarks
    int indent = 4;
    int comments = 20;  // per cent of the lines
    int handlers = 30;  // per cent of the larger procedures
    bool saysCall = false;
};

struct Module {
    ModuleKind kind = ModuleKind::Standard;
    std::string name;
    std::string fileName;
    std::string subject;  // the nouns it is about
    int lines = 0;
    Style style;
    NameSet names;
    std::vector<int> records;
    std::vector<int> enumerations;
    std::vector<Constant> constants;
    std::vector<Variable> variables;
    std::vector<EventDeclaration> events;
    std::vector<Control> controls;
    std::vector<Procedure> procedures;
};

struct Plan {
    Plan(std::size_t lines, unsigned seed);
    Plan(const Plan&) = delete;  // the pool draws from this plan's chances
    Plan& operator=(const Plan&) = delete;

    /// A module of `list` in the neighbourhood of `module`, seldom one far away; -1 when the list is empty.
    [[nodiscard]] int Near(const std::vector<int>& list, int module);
    [[nodiscard]] std::string TypeName(Type type) const;
    [[nodiscard]] Type BasicType();
    [[nodiscard]] bool IsUniqueName(const std::string& name) const { return pool.Holders(Lower(name)) <= 1; }

    Random random;
    NamePool pool;
    std::string projectName;
    std::vector<Module> modules;
    std::vector<int> standards, classes, forms, userControls;  // positions in modules
    std::vector<Record> records;
    std::vector<Enumeration> enumerations;

private:
    void PlanModules(std::size_t lines);
    void PlanTypes(int module);
    void PlanDeclarations(int module);
    void PlanControls(int module);
    void PlanProcedures(int module);
    void PlanHandlers(int module);
    void PlanProperty(int module, int share);

    std::string MemberName(const Module& module, std::string_view prefix);
    std::string ParameterName(const Module& module, Type type, std::size_t number);
    std::vector<Parameter> Parameters(int module, bool canHaveRecords, bool isPublic);
    Type AnyType(int module, bool mayBePrivate);
    int NearIndex(std::size_t count, int module);

    NameSet projectNames_;
    std::vector<int> publicRecords_, publicEnumerations_;
};

/// "str", "s" or nothing: what stands before a name of that type.
[[nodiscard]] std::string_view Prefix(Type type, const Style& style);
/// "$" and the like, or empty.
[[nodiscard]] std::string_view TypeSign(Type type);

}  // namespace generate

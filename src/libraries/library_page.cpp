#include "libraries/library_page.h"

namespace {

std::string_view KindText(ProcKind kind) {
    switch (kind) {
        case ProcKind::Function:
            return "Function ";
        case ProcKind::PropertyGet:
            return "Property Get ";
        case ProcKind::PropertyLet:
            return "Property Let ";
        case ProcKind::PropertySet:
            return "Property Set ";
        default:
            return "Sub ";
    }
}

// " As String"; empty without a type.
std::string AsType(const LibraryDataType& type) {
    return type.shown.empty() ? std::string() : " As " + type.shown;
}

std::string ArgumentText(const LibraryArgument& argument) {
    if (argument.isParamArray)
        return "ParamArray " + argument.name + "() As Variant";
    std::string text = argument.isOptional ? "Optional " : "";
    text += argument.isByRef ? "ByRef " : "ByVal ";
    text += argument.name + argument.type.array + AsType(argument.type);
    return argument.defaultValue.empty() ? text : text + " = " + argument.defaultValue;
}

std::string Arguments(const LibraryProcedure& procedure) {
    std::string text = "(";
    for (const LibraryArgument& argument : procedure.arguments)
        text += (text.size() > 1 ? ", " : "") + ArgumentText(argument);
    return text + ')';
}

class PageWriter {
public:
    void Line(std::string_view text) { page_.append(text).append("\n"); }
    void Field(std::string_view label, std::string_view text) {
        if (!text.empty())
            Line(std::string(label) + ": " + OneLine(std::string(text)));
    }
    void Heading(const std::string& text, std::string_view description, bool isHidden) {
        Line("");
        Line(OneLine(text) + (isHidden ? " (hidden)" : ""));
        Note(description, 1);
    }
    void Entry(const std::string& text, std::string_view description, bool isHidden) {
        Line("    " + OneLine(text) + (isHidden ? " (hidden)" : ""));
        Note(description, 2);
    }
    void Variables(const std::vector<LibraryVariable>& variables, bool isConst) {
        for (const LibraryVariable& variable : variables)
            Entry(VariableLine(variable, isConst), variable.description, variable.isHidden);
    }
    [[nodiscard]] std::string Take() { return std::move(page_); }

private:
    void Note(std::string_view text, std::size_t depth) {
        if (!text.empty())
            Line(std::string(4 * depth, ' ') + "' " + OneLine(std::string(text)));
    }
    std::string page_;
};

void WriteClass(PageWriter& page, const LibraryClass& oneClass) {
    page.Heading(std::string(KindText(oneClass.kind)) + oneClass.name, oneClass.description, oneClass.isHidden);
    if (!oneClass.dll.empty())
        page.Entry("Lib \"" + oneClass.dll + '"', "", false);
    page.Variables(oneClass.constants, true);
    for (const LibraryProcedure& procedure : oneClass.procedures)
        page.Entry(Signature(procedure), procedure.description, procedure.isHidden || procedure.isRestricted);
    for (const LibraryProcedure& event : oneClass.events)
        page.Entry("Event " + event.name + Arguments(event), event.description, event.isHidden || event.isRestricted);
}

}  // namespace

std::string OneLine(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ')
            c = ' ';
    return text;
}

std::string VariableLine(const LibraryVariable& variable, bool isConst) {
    std::string line = (isConst ? "Const " : "") + variable.name + variable.type.array;
    if (isConst || variable.value.empty())
        line += AsType(variable.type);
    return variable.value.empty() ? line : line + " = " + variable.value;
}

std::string_view KindText(ModuleKind kind) {
    switch (kind) {
        case ModuleKind::Module:
            return "Module ";
        case ModuleKind::UserControl:
            return "Control ";
        default:
            return "Class ";
    }
}

std::string Signature(const LibraryProcedure& procedure) {
    return std::string(KindText(procedure.kind)) + procedure.name + Arguments(procedure) + AsType(procedure.type) +
           procedure.type.array;
}

std::string LibraryPage(const TypeLibrary& library, const LibraryContents& contents, std::string_view file) {
    PageWriter page;
    page.Field("Library", library.name);
    page.Field("Description", library.description);
    page.Field("File", file);
    page.Field("Version", library.Version());
    page.Field("Identifier", library.id);
    page.Field("Format", TextOf(library.format));
    for (const typelib::ImportedLibrary& missing : contents.missing)
        page.Field("Not found", missing.file + ' ' + missing.id);
    for (const LibraryClass& oneClass : contents.classes)
        WriteClass(page, oneClass);
    for (const LibraryGroup& oneEnum : contents.enums) {
        page.Heading("Enum " + oneEnum.name, oneEnum.description, oneEnum.isHidden);
        page.Variables(oneEnum.members, false);
    }
    for (const LibraryGroup& record : contents.records) {
        page.Heading("Type " + record.name, record.description, record.isHidden);
        page.Variables(record.members, false);
    }
    for (const LibraryAlias& alias : contents.aliases)
        page.Heading("Alias " + alias.name + AsType(alias.type), "", false);
    return page.Take();
}

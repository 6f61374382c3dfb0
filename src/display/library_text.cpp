#include "display/library_text.h"

#include <algorithm>

#include "display/library_problem.h"
#include "display/shown_text.h"
#include "libraries/library_objects.h"
#include "libraries/library_page.h"
#include "model/clsControl.h"
#include "model/clsTypeLib.h"
#include "platform/code_page.h"
#include "shell/clsText.h"

namespace {

Text LabelOf(LibraryOutcome outcome) {
    switch (outcome) {
        case LibraryOutcome::Found:
            return Text::PlaceFound;
        case LibraryOutcome::Missing:
            return Text::PlaceMissing;
        case LibraryOutcome::NotRegistered:
            return Text::PlaceNotRegistered;
        case LibraryOutcome::OtherLibrary:
            return Text::PlaceOtherLibrary;
        case LibraryOutcome::WrongVersion:
            return Text::PlaceWrongVersion;
    }
    return Text::None;
}

// The model keeps the bounds of an array with its type.
LibraryDataType TypeOf(const LibraryDetail& detail) {
    LibraryDataType type;
    type.shown = detail.shownType.View();
    if (type.shown.ends_with(')')) {
        const std::size_t bracket = type.shown.rfind('(');
        type.array = type.shown.substr(bracket);
        type.shown.resize(bracket);
    }
    return type;
}

LibraryArgument ArgumentOf(const clsTypeLib& library, const clsVariable& variable) {
    const LibraryDetail& detail = library.DetailOf(variable);
    return {.name = std::string(variable.myNameOrg()),
            .type = TypeOf(detail),
            .isOptional = variable.isOptional,
            .isByRef = variable.isByRef,
            .isParamArray = variable.isParamArray,
            .defaultValue = std::string(detail.value.View())};
}

std::string ProcedureLine(const clsTypeLib& library, const clsProzedur& prozedur) {
    LibraryProcedure procedure;
    procedure.name = prozedur.myNameOrg();
    procedure.kind = prozedur.ProzedurTyp;
    procedure.type = TypeOf(library.DetailOf(prozedur));
    for (const clsVariable* variable : prozedur.MyVars)
        procedure.arguments.push_back(ArgumentOf(library, *variable));
    std::string line = Signature(procedure);
    if (prozedur.IsEvent)
        line.replace(0, line.find(' '), "Event");
    return line;
}

std::string VariableLine(const clsTypeLib& library, const clsVariable& variable) {
    LibraryVariable line;
    line.name = variable.myNameOrg();
    line.type = TypeOf(library.DetailOf(variable));
    line.value = library.DetailOf(variable).value.View();
    return VariableLine(line, variable.IsConst && !variable.MyEnum);
}

std::string LineOf(const clsTypeLib& library, const CodeObject& object) {
    switch (object.Class()) {
        case ObjectClass::Modul:
            return std::string(KindText(static_cast<const clsModul&>(object).ModulTyp)).append(object.myNameOrg());
        case ObjectClass::Prozedur:
            return ProcedureLine(library, static_cast<const clsProzedur&>(object));
        case ObjectClass::Variable:
            return VariableLine(library, static_cast<const clsVariable&>(object));
        case ObjectClass::Enum:
            return std::string("Enum ").append(object.myNameOrg());
        case ObjectClass::Type:
            return std::string("Type ").append(object.myNameOrg());
        case ObjectClass::Control:
        case ObjectClass::TypeLib:
            return {};
    }
    return {};
}

std::string Hidden() {
    return " (" + gText.TextNr(Text::HiddenMember) + ")";
}

class PageWriter {
public:
    explicit PageWriter(const clsTypeLib& library) : library_(library) {}

    void Line(std::string_view text) { page_.text.append(text).append(vbCrLf); }
    void Field(Text label, std::string_view value) {
        if (!value.empty())
            Line(OneLine(LabelText(label).append(value)));
    }
    /// The page has no line breaks but those that are written.
    void Paragraph(Text label, std::string_view text) {
        constexpr std::size_t kMostColumns = 72;
        Line(gText.TextNr(label) + ":");
        while (!text.empty()) {
            std::size_t end = text.size() <= kMostColumns ? text.size() : text.rfind(' ', kMostColumns);
            end = std::min(end, text.size());  // a word that is longer ends the paragraph
            Line(std::string("    ").append(text.substr(0, end)));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
    }
    void Title(const CodeObject& library) {
        Line("");
        page_.objects.push_back({&library, {Here() + Len(LabelText(Text::LibraryLabel)), Len(library.MyName())}});
        Field(Text::LibraryLabel, library.myNameOrg());
    }
    void Heading(const CodeObject& object) {
        Line("");
        Entry(object, "", "    ");
    }
    void Member(const CodeObject& object) { Entry(object, "    ", "        "); }

    [[nodiscard]] CodeText Take() { return std::move(page_); }

private:
    static std::string LabelText(Text label) { return gText.TextNr(label) + ": "; }
    [[nodiscard]] Pos Here() const { return Len(page_.text); }

    void Entry(const CodeObject& object, std::string_view indent, std::string_view noteIndent) {
        const LibraryDetail& detail = library_.DetailOf(object);
        std::string line = OneLine(LineOf(library_, object));
        const Pos name = Here() + Len(indent) + NameIn(line, object);
        page_.objects.push_back({&object, {name, Len(object.MyName())}});
        page_.spans.push_back({name, Len(object.MyName()), Colour::Public});
        if (detail.isHidden || detail.isRestricted)
            line.append(Hidden());
        Line(std::string(indent).append(line));
        if (detail.description.empty())
            return;
        const std::string note = OneLine(std::string("' ").append(detail.description));
        page_.spans.push_back({Here() + Len(noteIndent), Len(note), Colour::Comment});
        Line(std::string(noteIndent).append(note));
    }

    // Words before the name have no brackets and no "As".
    static Pos NameIn(std::string_view line, const CodeObject& object) {
        const std::size_t begin = object.Class() == ObjectClass::Variable ? 0 : line.find(' ') + 1;
        const std::size_t name = line.find(OneLine(std::string(object.myNameOrg())), begin);
        return name == std::string_view::npos ? 0 : static_cast<Pos>(name);
    }

    const clsTypeLib& library_;
    CodeText page_;
};

void WriteClass(PageWriter& page, const clsModul& modul) {
    page.Heading(modul);
    for (const clsVariable* constant : modul.MyVars)
        page.Member(*constant);
    for (const clsProzedur* prozedur : modul.MyProcs)
        page.Member(*prozedur);
    for (const clsProzedur* event : modul.MyEvents)
        page.Member(*event);
}

}  // namespace

CodeText LibraryText(const clsTypeLib& library) {
    PageWriter page(library);
    page.Line(ShownPath(library.InprocServer32));
    page.Title(library);
    page.Field(Text::Description, library.Description);
    page.Field(Text::LibraryVersion, library.file.version.empty() ? library.Version : library.file.version);
    page.Field(Text::LibraryIdentifier, library.TypeLibID);
    page.Field(Text::LibraryFormat, library.format);
    page.Field(Text::SoughtProjectLine, library.ProjektEintrag);
    page.Field(Text::LibrariesMissing, MissingImports(library));
    if (!library.file.IsFound())
        for (const LibraryPlace& place : library.file.places)
            page.Field(Text::LibrarySought, gText.TextNr(LabelOf(place.step)) + ": " + OutcomeText(place));
    if (library.file.IsMissing() && !library.isProject) {
        page.Line("");
        page.Field(Text::NeededBy, ActiveCodePage().FromUtf8(NeedText(library)));
        page.Paragraph(Text::Remedy, ActiveCodePage().FromUtf8(RemedyText(library)));
    }
    for (const clsModul* modul : library.myCoClasses)
        WriteClass(page, *modul);
    const auto write = [&page](const auto& blocks) {
        for (const auto* block : blocks) {
            page.Heading(*block);
            for (const clsVariable* member : block->MyVars)
                page.Member(*member);
        }
    };
    write(library.myEnums);
    write(library.myTypes);
    return page.Take();
}

const clsTypeLib* LibraryOf(const CodeObject& object) {
    return object.Class() == ObjectClass::TypeLib ? static_cast<const clsTypeLib*>(&object) : object.myLibrary;
}

std::string LibraryDeclaration(const CodeObject& object) {
    const clsTypeLib* const library = object.myLibrary;
    if (!library)
        return {};
    const LibraryDetail& detail = library->DetailOf(object);
    return LineOf(*library, object) + (detail.isHidden || detail.isRestricted ? Hidden() : "");
}

std::string_view ShownTypeOf(const CodeObject& object) {
    if (object.myLibrary)
        return object.myLibrary->DetailOf(object).shownType.View();
    switch (object.Class()) {
        case ObjectClass::Variable:
            return static_cast<const clsVariable&>(object).DatenTyp();
        case ObjectClass::Control:
            return static_cast<const clsControl&>(object).DatenTyp();
        case ObjectClass::Prozedur:
            return static_cast<const clsProzedur&>(object).DatenTyp();
        default:
            return {};
    }
}

Text LabelOf(LibraryStep step) {
    switch (step) {
        case LibraryStep::Registry:
            return Text::SoughtRegistry;
        case LibraryStep::ProjectLine:
            return Text::SoughtProjectLine;
        case LibraryStep::ProjectFolder:
            return Text::SoughtProjectFolder;
        case LibraryStep::LibraryFolder:
            return Text::SoughtLibraryFolder;
    }
    return Text::None;
}

std::string OutcomeText(const LibraryPlace& place) {
    const std::string& outcome = gText.TextNr(LabelOf(place.outcome));
    return place.place.empty() ? outcome : outcome + ": " + ShownPath(place.place);
}

#include "display/properties.h"

#include "display/library_problem.h"
#include "display/library_text.h"
#include "display/shown_text.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"
#include "shell/clsText.h"

namespace {

class Rows {
public:
    explicit Rows(std::string_view name) { rows_.push_back({{Text::None, "Name"}, {Text::None, std::string(name)}}); }
    Rows& Add(Text label, std::string_view value) {
        rows_.push_back({{label, {}}, {Text::None, std::string(value)}});
        return *this;
    }
    Rows& AddCount(Text label, int count) {
        rows_.push_back({{label, {}}, {Text::None, Utf8Number(count), true}});
        return *this;
    }
    Rows& AddUnlessEmpty(Text label, std::string_view value) { return value.empty() ? *this : Add(label, value); }
    Rows& AddText(Text label, Text value) {
        rows_.push_back({{label, {}}, {value, {}}});
        return *this;
    }
    [[nodiscard]] PropertyRows Take() { return std::move(rows_); }

private:
    PropertyRows rows_;
};

// What a library says about one of its objects.
PropertyRows WithLibraryFacts(Rows rows, const CodeObject& object) {
    if (!object.myLibrary)
        return rows.Take();
    const LibraryDetail& detail = object.myLibrary->DetailOf(object);
    return rows.AddUnlessEmpty(Text::ConstantValue, detail.value.View())
        .AddUnlessEmpty(Text::Description, detail.description)
        .Take();
}

PropertyRows OfModul(const clsModul& modul) {
    if (modul.myLibrary)
        return WithLibraryFacts(
            Rows(modul.myNameOrg()).Add(Text::Kind, TextOf(modul.ModulTyp)).Add(Text::BelongsTo, OwnerText(modul)),
            modul);
    return Rows(modul.myNameOrg())
        .Add(Text::Kind, TextOf(modul.ModulTyp))
        .AddCount(Text::CodeLines, modul.AnzLineCode)
        .Take();
}

PropertyRows OfProzedur(const clsProzedur& prozedur) {
    Rows rows(prozedur.myNameOrg());
    rows.Add(Text::Access, TextOf(prozedur.Zugriff))
        .Add(Text::Kind, prozedur.ProzedurTypText())
        .Add(Text::BelongsTo, OwnerText(prozedur));
    if (prozedur.ProzedurTyp == ProcKind::Function || prozedur.ProzedurTyp == ProcKind::PropertyGet)
        rows.Add(Text::DataType, ShownTypeOf(prozedur));
    else if (prozedur.myLibrary)
        rows.AddUnlessEmpty(Text::DataType, ShownTypeOf(prozedur));
    return WithLibraryFacts(std::move(rows), prozedur);
}

PropertyRows OfVariable(const clsVariable& variable) {
    Rows rows(variable.myNameOrg());
    if (variable.Zugriff == Access::Procedure)
        rows.AddText(Text::Access, Text::Local);
    else
        rows.Add(Text::Access, TextOf(variable.Zugriff));
    rows.Add(Text::DataType, ShownTypeOf(variable)).Add(Text::BelongsTo, OwnerText(variable));
    return WithLibraryFacts(std::move(rows), variable);
}

PropertyRows OfBlock(const CodeObject& block) {
    return WithLibraryFacts(
        Rows(block.myNameOrg()).Add(Text::Access, TextOf(block.Zugriff)).Add(Text::BelongsTo, OwnerText(block)), block);
}

PropertyRows OfControl(const clsControl& control) {
    return Rows(control.myNameOrg())
        .Add(Text::DataType, control.DatenTyp())
        .Add(Text::BelongsTo, OwnerText(control))
        .Take();
}

PropertyRows OfLibrary(const clsTypeLib& library) {
    const LibraryFile& file = library.file;
    Rows rows(library.myNameOrg());
    rows.Add(Text::Kind, TextOf(library.LibTyp)).AddUnlessEmpty(Text::Description, library.Description);
    if (file.IsFound())
        rows.Add(Text::FileMenu, ShownPath(file.path));
    else if (file.IsMissing())
        rows.AddText(Text::FileMenu, Text::LibraryNotFound);
    if (file.IsMissing() && !library.isProject)
        rows.Add(Text::NeededBy, ActiveCodePage().FromUtf8(NeedText(library)))
            .Add(Text::Remedy, ActiveCodePage().FromUtf8(RemedyText(library)));
    rows.AddUnlessEmpty(Text::LibraryVersion, file.version.empty() ? library.Version : file.version)
        .AddUnlessEmpty(Text::LibraryIdentifier, library.isProject ? std::string() : library.TypeLibID);
    for (const LibraryPlace& place : file.places)
        rows.Add(LabelOf(place.step), OutcomeText(place));
    return rows.Take();
}

}  // namespace

std::string KindAndName(std::string_view kind, std::string_view name) {
    return std::string(kind).append(" ").append(name);
}

std::string OwnerText(const CodeObject& object) {
    if (object.Class() == ObjectClass::Variable) {
        const auto& variable = static_cast<const clsVariable&>(object);
        if (variable.Prozedur)
            return KindAndName(variable.Prozedur->ProzedurTypText(), variable.Prozedur->myNameOrg()).append("()");
        if (variable.MyType)
            return KindAndName("Type", variable.MyType->myNameOrg());
        if (variable.MyEnum)
            return KindAndName("Enum", variable.MyEnum->myNameOrg());
    }
    if (object.myLibrary && !object.Modul)
        return KindAndName(TextOf(object.myLibrary->LibTyp), object.myLibrary->myNameOrg());
    return object.Modul ? KindAndName(TextOf(object.Modul->ModulTyp), object.Modul->myNameOrg()) : std::string();
}

PropertyRows Anzeigen_Eigenschaften(const CodeObject& object) {
    switch (object.Class()) {
        case ObjectClass::Modul:
            return OfModul(static_cast<const clsModul&>(object));
        case ObjectClass::Prozedur:
            return OfProzedur(static_cast<const clsProzedur&>(object));
        case ObjectClass::Variable:
            return OfVariable(static_cast<const clsVariable&>(object));
        case ObjectClass::Type:
        case ObjectClass::Enum:
            return OfBlock(object);
        case ObjectClass::Control:
            return OfControl(static_cast<const clsControl&>(object));
        case ObjectClass::TypeLib:
            return OfLibrary(static_cast<const clsTypeLib&>(object));
    }
    return {};
}

PropertyRows Anzeigen_Eigenschaften(const clsProjekt& projekt) {
    return Rows(projekt.MyName).Take();
}

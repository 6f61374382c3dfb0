#include "display/properties.h"

#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"

namespace {

class Rows {
public:
    explicit Rows(std::string_view name) { rows_.push_back({{Text::None, "Name"}, {Text::None, std::string(name)}}); }
    Rows& Add(Text label, std::string_view value) {
        rows_.push_back({{label, {}}, {Text::None, std::string(value)}});
        return *this;
    }
    Rows& AddText(Text label, Text value) {
        rows_.push_back({{label, {}}, {value, {}}});
        return *this;
    }
    [[nodiscard]] PropertyRows Take() { return std::move(rows_); }

private:
    PropertyRows rows_;
};

PropertyRows OfModul(const clsModul& modul) {
    return Rows(modul.myNameOrg())
        .Add(Text::Kind, TextOf(modul.ModulTyp))
        .Add(Text::CodeLines, std::to_string(modul.AnzLineCode))
        .Take();
}

PropertyRows OfProzedur(const clsProzedur& prozedur) {
    Rows rows(prozedur.myNameOrg());
    rows.Add(Text::Access, TextOf(prozedur.Zugriff))
        .Add(Text::Kind, prozedur.ProzedurTypText())
        .Add(Text::BelongsTo, OwnerText(prozedur));
    if (prozedur.ProzedurTyp == ProcKind::Function || prozedur.ProzedurTyp == ProcKind::PropertyGet)
        rows.Add(Text::DataType, prozedur.DatenTyp());
    return rows.Take();
}

PropertyRows OfVariable(const clsVariable& variable) {
    Rows rows(variable.myNameOrg());
    if (variable.Zugriff == Access::Procedure)
        rows.AddText(Text::Access, Text::Local);
    else
        rows.Add(Text::Access, TextOf(variable.Zugriff));
    return rows.Add(Text::DataType, variable.DatenTyp()).Add(Text::BelongsTo, OwnerText(variable)).Take();
}

PropertyRows OfBlock(const CodeObject& block) {
    return Rows(block.myNameOrg())
        .Add(Text::Access, TextOf(block.Zugriff))
        .Add(Text::BelongsTo, OwnerText(block))
        .Take();
}

PropertyRows OfControl(const clsControl& control) {
    return Rows(control.myNameOrg())
        .Add(Text::DataType, control.DatenTyp())
        .Add(Text::BelongsTo, OwnerText(control))
        .Take();
}

PropertyRows OfLibrary(const clsTypeLib& library) {
    return Rows(library.myNameOrg()).Add(Text::Kind, TextOf(library.LibTyp)).Take();
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

#include "platform/stdole_types.h"

#include <algorithm>
#include <array>

using typelib::TypeKind;

namespace {

// In the order of the library.
constexpr std::array kTypes = {
    StdoleType{"GUID", TypeKind::Record},
    StdoleType{"DISPPARAMS", TypeKind::Record},
    StdoleType{"EXCEPINFO", TypeKind::Record},
    StdoleType{"IUnknown", TypeKind::Interface},
    StdoleType{"IDispatch", TypeKind::Interface},
    StdoleType{"IEnumVARIANT", TypeKind::Interface},
    StdoleType{"OLE_COLOR", TypeKind::Alias, typelib::UI4},
    StdoleType{"OLE_XPOS_PIXELS", TypeKind::Alias, typelib::I4},
    StdoleType{"OLE_YPOS_PIXELS", TypeKind::Alias, typelib::I4},
    StdoleType{"OLE_XSIZE_PIXELS", TypeKind::Alias, typelib::I4},
    StdoleType{"OLE_YSIZE_PIXELS", TypeKind::Alias, typelib::I4},
    StdoleType{"OLE_XPOS_HIMETRIC", TypeKind::Alias, typelib::I4},
    StdoleType{"OLE_YPOS_HIMETRIC", TypeKind::Alias, typelib::I4},
    StdoleType{"OLE_XSIZE_HIMETRIC", TypeKind::Alias, typelib::I4},
    StdoleType{"OLE_YSIZE_HIMETRIC", TypeKind::Alias, typelib::I4},
    StdoleType{"OLE_XPOS_CONTAINER", TypeKind::Alias, typelib::R4},
    StdoleType{"OLE_YPOS_CONTAINER", TypeKind::Alias, typelib::R4},
    StdoleType{"OLE_XSIZE_CONTAINER", TypeKind::Alias, typelib::R4},
    StdoleType{"OLE_YSIZE_CONTAINER", TypeKind::Alias, typelib::R4},
    StdoleType{"OLE_HANDLE", TypeKind::Alias, typelib::Int},
    StdoleType{"OLE_OPTEXCLUSIVE", TypeKind::Alias, typelib::Bool},
    StdoleType{"OLE_CANCELBOOL", TypeKind::Alias, typelib::Bool},
    StdoleType{"OLE_ENABLEDEFAULTBOOL", TypeKind::Alias, typelib::Bool},
    StdoleType{"OLE_TRISTATE", TypeKind::Enum},
    StdoleType{"FONTNAME", TypeKind::Alias, typelib::Bstr},
    StdoleType{"FONTSIZE", TypeKind::Alias, typelib::Cy},
    StdoleType{"FONTBOLD", TypeKind::Alias, typelib::Bool},
    StdoleType{"FONTITALIC", TypeKind::Alias, typelib::Bool},
    StdoleType{"FONTUNDERSCORE", TypeKind::Alias, typelib::Bool},
    StdoleType{"FONTSTRIKETHROUGH", TypeKind::Alias, typelib::Bool},
    StdoleType{"IFont", TypeKind::Interface},
    StdoleType{"Font", TypeKind::Dispatch, typelib::Empty, "StdFont"},
    StdoleType{"IFontDisp", TypeKind::Alias, typelib::Empty, "StdFont"},
    StdoleType{"StdFont", TypeKind::CoClass},
    StdoleType{"IPicture", TypeKind::Interface},
    StdoleType{"Picture", TypeKind::Dispatch, typelib::Empty, "StdPicture"},
    StdoleType{"IPictureDisp", TypeKind::Alias, typelib::Empty, "StdPicture"},
    StdoleType{"StdPicture", TypeKind::CoClass},
    StdoleType{"LoadPictureConstants", TypeKind::Enum},
    StdoleType{"StdFunctions", TypeKind::Module},
    StdoleType{"FontEvents", TypeKind::Dispatch},
    StdoleType{"IFontEventsDisp", TypeKind::Alias},
};

struct KnownId {
    std::string_view id;
    std::size_t index;
};
constexpr std::array kIds = {
    KnownId{kIUnknownId, 3},
    KnownId{kIDispatchId, 4},
    KnownId{"{00020404-0000-0000-C000-000000000046}", 5},
    KnownId{"{66504301-BE0F-101A-8BBB-00AA00300CAB}", 6},
    KnownId{"{66504313-BE0F-101A-8BBB-00AA00300CAB}", 19},
    KnownId{"{BEF6E002-A874-101A-8BBA-00AA00300CAB}", 30},
    KnownId{"{BEF6E003-A874-101A-8BBA-00AA00300CAB}", 31},
    KnownId{"{0BE35203-8F91-11CE-9DE3-00AA004BB851}", 33},
    KnownId{"{7BF80980-BF32-101A-8BBB-00AA00300CAB}", 34},
    KnownId{"{7BF80981-BF32-101A-8BBB-00AA00300CAB}", 35},
    KnownId{"{0BE35204-8F91-11CE-9DE3-00AA004BB851}", 37},
};

}  // namespace

const StdoleType* StdoleTypeOf(const TypeLibrary& library, const typelib::ImportedType& type) {
    if (!type.id.empty()) {
        const auto* const known =
            std::find_if(kIds.begin(), kIds.end(), [&](const KnownId& id) { return id.id == type.id; });
        return known == kIds.end() ? nullptr : &kTypes[known->index];
    }
    if (type.library >= library.importedLibraries.size() || library.importedLibraries[type.library].id != kStdoleId ||
        type.index < 0 || static_cast<std::size_t>(type.index) >= kTypes.size())
        return nullptr;
    return &kTypes[static_cast<std::size_t>(type.index)];
}

// The project tree: kinds of module, modules, groups by access and kind, code objects. Every node's key leads back to
// its object. The fill only adds what is missing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "display/baum.h"

class CodeObject;
class clsModul;
class clsProjekt;
class clsTypeLib;

/// The groups of a module in the order of the tree.
enum class TreeGroup : std::uint8_t {
    Controls,
    PrivateType,
    PublicType,
    PrivateEnum,
    PublicEnum,
    PrivateVariable,
    PublicVariable,
    PrivateProperty,
    PublicProperty,
    PrivateFunction,
    PublicFunction,
    PrivateSub,
    PublicSub,
};
inline constexpr std::size_t kTreeGroups = 13;

struct TreeGroupKind {
    std::string_view suffix;  // of the key, after that of the module
    std::string_view text;
    std::string_view image;
};
[[nodiscard]] const TreeGroupKind& KindOf(TreeGroup group);

/// The groups of a library for its enumerations and records.
inline constexpr TreeGroupKind kLibraryEnums{" enum []", "Enum...", "enum"};
inline constexpr TreeGroupKind kLibraryTypes{" type []", "Type...", "type"};

/// The text of an object's node: the name, with "()" after subs and functions and the accessor after properties.
[[nodiscard]] std::string NodeText(const CodeObject& object);

/// How a new node of an object looks: grey are the dead and undead, and what a library hides.
[[nodiscard]] NodeColour NodeColourOf(const CodeObject& object);

/// The icon of a library: the identifier of a component that has a picture of its own.
[[nodiscard]] std::string_view LibraryImage(const clsTypeLib& library);

/// Adds one module with all that it has.
void ModulStruktur_Anzeigen(const clsModul& modul, Baum& tree, bool withLocals);

/// Fills the tree with the whole project, with progress. A cancel keeps the nodes added so far.
/// @param withLocals  whether procedures have their arguments and locals below them
void ProjektStruktur_Anzeigen(const clsProjekt& projekt, Baum& tree, bool withLocals);

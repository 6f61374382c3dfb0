// The pictures of the window, by the keys that trees, toolbars and menus use for them.
//
// All are drawn as SVG (docs/icons.md describes them) and rendered when they are asked for, at the size and pixel ratio
// they are asked for. What is drawn in the colour of text follows the palette; a selected picture takes the colour of
// selected text, a disabled one that of disabled text.
#pragma once

#include <QIcon>
#include <span>
#include <string_view>

/// An empty icon when no picture has the key. Keys are compared with their case: "module" is the tree's, "Module" the
/// toolbar's.
[[nodiscard]] QIcon IconFor(std::string_view key);
/// The same picture in the colour of what is disabled.
[[nodiscard]] QIcon FaintIconFor(std::string_view key);
/// The same picture for white paper, whatever the palette is.
[[nodiscard]] QIcon PaperIconFor(std::string_view key);
[[nodiscard]] QIcon ApplicationIcon();
[[nodiscard]] std::span<const std::string_view> AllIconKeys();

/// Forgets what was rendered in the old colours. Icons in use stay valid and come out in the new ones.
void IconsPaletteChanged();

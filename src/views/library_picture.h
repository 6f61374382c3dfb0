// The picture that a component has for the toolbox of Visual Basic.
#pragma once

#include <QIcon>
#include <string>
#include <string_view>

/// The picture of the component with this identifier in the open project; that of any component if it cannot be shown.
[[nodiscard]] QIcon LibraryPicture(std::string_view typeLibId);

/// An icon with all images of a BMP or ICO file; a bitmap is transparent where it has the colour of its lower left
/// corner. Empty if the file cannot be shown.
[[nodiscard]] QIcon PictureOfFile(const std::string& file);

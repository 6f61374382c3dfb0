// The picture of a component among the resources of its file, as the file of an image.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The image of this number in a program: the bitmap of the number, else the icon of the number, else the icon at that
/// place among all icons, counted from 1. A whole BMP or ICO file; empty if there is none, or none of a toolbox's size.
[[nodiscard]] std::string PictureFileOf(std::string_view program, std::uint32_t number);

// The hover text of an object as a tool tip, the same over trees and code.
#pragma once

#include <QString>
#include <string>
#include <vector>

/// @param lines  UTF-8; the first one is emphasised
[[nodiscard]] QString ToolTipOf(const std::vector<std::string>& lines);

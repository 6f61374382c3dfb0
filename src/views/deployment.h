// What whoever hands the program on fills in for its users. An empty text leaves out what would lead there.
#pragma once

#include <string_view>

/// Where mails about errors go.
inline constexpr std::string_view kSupportAddress = "";
/// The page that the about window and the help menu lead to.
inline constexpr std::string_view kProductPage = "";

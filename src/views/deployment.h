// Addresses that a distributor of the program fills in. An empty text hides the widgets that use it.
#pragma once

#include <string_view>

/// Where mails about errors go.
inline constexpr std::string_view kSupportAddress = "";
/// The page that the about window and the help menu lead to.
inline constexpr std::string_view kProductPage = "";

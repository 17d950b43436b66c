/// Addresses on the web: the program's own, and those that share it.
#pragma once

#include "toolkit/text.h"

#include <string_view>

namespace tandrel
{

inline constexpr const char* kHomePage = "https://tandrel-player.example/";
/// The page that the links below recommend.
inline constexpr const char* kSharedPage = "https://tandrel-player.example/download";

/// For a value in an address: letters, digits and "-._~" stay, every other byte becomes "%" and two capital
/// hexadecimal digits.
Text percentEncoded(std::string_view bytes);

/// The address that opens the form of a network to share the page under `title`.
Text facebookLink(std::string_view title);
Text twitterLink(std::string_view title);
Text myspaceLink(std::string_view title);

} // namespace tandrel

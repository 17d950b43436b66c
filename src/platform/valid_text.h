/// Texts that come from files and disks, which may be anything.
#pragma once

#include <string>
#include <string_view>

namespace tandrel
{

/// The text with a question mark for each byte that is no part of well-formed UTF-8.
std::string validText(std::string_view text);

} // namespace tandrel

/// File names on this platform may hold characters that command strings, selections and line files use as marks. They
/// are mapped to the private-use code points U+F000 + code (in UTF-8) where a path enters the program, and back where
/// it leaves. All other bytes pass untouched, invalid UTF-8 included.
#pragma once

#include <string>
#include <string_view>

namespace tandrel
{

/// For a path that enters: `"`, `|`, CR and LF become U+F022, U+F07C, U+F00D and U+F00A.
std::string markPath(std::string_view path);

/// For a path that leaves: the same code points become the characters again.
std::string unmarkPath(std::string_view path);

} // namespace tandrel

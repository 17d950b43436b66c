/// The user's language, and the names that media give to languages.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tandrel
{

/// Two letters such as "de", from LC_ALL, LC_MESSAGES or LANG, the first that says something. Empty if none names a
/// language, as in "C".
std::string desktopLanguage(const std::function<const char*(const char*)>& environment);

/// True if a track's language ("de", "ger", "deu", "de-AT") is the one of these two letters.
bool isLanguage(std::string_view named, std::string_view language);

} // namespace tandrel

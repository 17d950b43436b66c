/// The language of the desktop, as discs name theirs.
#pragma once

#include <functional>
#include <string>

namespace tandrel
{

/// Two letters, e.g. "de"; "en" where the desktop names none. Asks for LC_ALL, LC_MESSAGES and LANG, in this order.
std::string desktopLanguage(const std::function<const char*(const char*)>& environment);

} // namespace tandrel

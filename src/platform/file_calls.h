/// How `tandrel-open` asks a console to take the files that it has left for it. Names and numbers only.
#pragma once

namespace tandrel::file_calls
{

/// A property of the console's window, two cardinals: the process that it belongs to, and how many calls it has heard.
/// A console without it hears none.
inline constexpr const char* kListens = "_TANDREL_TAKES_FILES";
/// The message that is a call, sent to the console's window.
inline constexpr const char* kCall = "_TANDREL_TAKE_FILES";

} // namespace tandrel::file_calls

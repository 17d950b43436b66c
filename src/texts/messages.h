/// What the user is told, in English.
#pragma once

namespace tandrel::message
{

inline constexpr const char* kCannotPlay = "Media File can't be played!";
inline constexpr const char* kMakePrimary = "Make Tandrel Player as primary player?";

} // namespace tandrel::message

/// The classes of files that the program is known for, and the start from a disc.
#pragma once

#include "toolkit/text.h"

#include <cstdint>

namespace tandrel
{

/// Writes one text value under a predefined key (`Registry::kClasses`, `Registry::kMachine`); an empty name is the
/// key's own value. Without the right to do so nothing is written, and nothing is reported.
void RegistrySetString(const std::int32_t& Root, const Text& KeyName, const Text& ValueName, const Text& Value);

/// Writes all classes of files, the class of discs and what happens when a disc comes in; with `asDefault` each type of
/// file gets its class too. `programFolder` has no closing separator.
void writeFileClasses(const Text& programFolder, bool asDefault);

} // namespace tandrel

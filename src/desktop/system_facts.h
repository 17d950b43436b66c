/// What system the program runs on.
#pragma once

#include "toolkit/text.h"

namespace tandrel
{

/// The name of the system's version, from its platform and version numbers; "Unknown" for what the table doesn't hold,
/// which every test takes for a modern system.
Text GetWindowsVersion();

/// True for the systems with the older video control: "WINDOWS 98", "WINDOWS ME", "WINDOWS 2000", "WINDOWS NT" and
/// "WINDOWS XP". `version` is upper-cased.
bool isOlderSystem(const Text& version);

} // namespace tandrel

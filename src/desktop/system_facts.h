/// What system the program runs on.
#pragma once

#include "toolkit/text.h"

namespace tandrel
{

/// Name and short code of the system's version, once `GetWindowsVersion` has run.
extern Text WindowsName;
extern Text VersionToken;

/// Looks the system's platform and version numbers up, and returns the name; "Unknown" for what the table doesn't hold,
/// which every test takes for a modern system.
Text GetWindowsVersion();

/// The folder of the system's own programs, at most 512 bytes of it, without a closing separator.
Text GetSystemFolder();

/// True for the systems with the older video control: "WINDOWS 98", "WINDOWS ME", "WINDOWS 2000", "WINDOWS NT" and
/// "WINDOWS XP". `version` is upper-cased.
bool isOlderSystem(const Text& version);

} // namespace tandrel

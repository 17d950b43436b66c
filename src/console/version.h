/// The program's version, as its texts show it.
#pragma once

#include "toolkit/text.h"

namespace tandrel
{

inline constexpr const char* kProgramName = "Tandrel Player";

/// "Tandrel Player PRO " and the version, minor number and revision in two digits each.
Text programTitle();

/// The version alone, such as "1.00.00".
Text versionText();

/// The digits of the same version as one number.
Long programNumber();

} // namespace tandrel

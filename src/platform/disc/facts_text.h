/// The facts of a disc on their way between two processes.
#pragma once

#include "platform/disc/disc_look.h"

#include <optional>
#include <string>
#include <string_view>

namespace tandrel
{

std::string writeLook(const DiscLook& look);

/// Empty where the text is not whole, or holds what no disc can have: who wrote it may have been led astray.
std::optional<DiscLook> readLook(std::string_view text);

/// As UTF-8, which it may be already, else it is read as Latin-1; without control characters and blanks around it.
std::string cleanLabel(std::string_view label);

} // namespace tandrel

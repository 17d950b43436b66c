/// `last.dat`: the files opened last, one path a line, the newest first.
#pragma once

#include "toolkit/text.h"

#include <vector>

namespace tandrel::recent
{

/// As many are shown at most.
inline constexpr std::size_t kMostListed = 12;

/// Puts all of `newEntries` in front; of the old lines those follow that equal none of them, until there are thirteen
/// lines. Nothing happens without entries, or where the old list is there and can't be read.
void update(const std::vector<Text>& newEntries);

/// The lines that are not blank, in the order of the file.
std::vector<Text> lines();

/// True if the list is gone afterwards.
bool remove();

} // namespace tandrel::recent

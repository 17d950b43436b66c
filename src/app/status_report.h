/// A table of the open videos on request.
#pragma once

#include "platform/mci/mci_service.h"

namespace tandrel
{

/// Writes a table of all open videos to the file named in TANDREL_REPORT; nothing where that isn't set. A line for each
/// video, tabs between: path, width and height in pixels, length and position in ms, frames shown, frames dropped.
/// Behind them a line with "# ", the word "paints" and how many paintings of windows and controls there were.
void writeStatusReport(MciService& media, long paints);

} // namespace tandrel

/// A table of the open videos on request.
#pragma once

#include "platform/mci/mci_service.h"
#include "toolkit/qt/tick_times.h"

namespace tandrel
{

/// Writes a table of all open videos to the file named in TANDREL_REPORT; nothing where that isn't set. A line for each
/// video, tabs between: path, width and height in pixels, length and position in ms, frames shown, frames dropped, and
/// how far it is made cheaper (`FrameCounts::eased`).
/// Behind them lines with "# " and a word: "console", and what that shows: the place, the length, the slider and its
/// maximum, and the title; "paints" and how many paintings of windows and controls there were; "ticks",
/// a timer, its ticks so far, and microseconds: all of them together, the median and the 99th percentile of the latest,
/// and the longest.
void writeStatusReport(MciService& media, long paints, const TickTimes& ticks);

} // namespace tandrel

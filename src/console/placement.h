/// Where the windows of a group stand: pure functions from count and place to a rectangle. Pixels relative to the
/// monitor's corner; heights are those of whole windows, with their caption band.
#pragma once

#include "platform/services.h"

namespace tandrel
{

/// Height of a window's caption band in pixels.
inline constexpr int kTitleBand = 25;

/// The order of the cells for two to four videos: round the screen, or line by line. Larger grids always go line by
/// line.
enum class CellOrder { Clockwise, Reading };

struct MonitorPixels {
    double width;
    double height;
};

/// Cell `place` (from 0) of the grid for `count` videos (2 to 12).
PixelRect gridCell(int count, int place, MonitorPixels monitor, CellOrder order);

/// The large place of the lead video.
PixelRect leadPlace(MonitorPixels monitor);

/// Place `tile` (from 0) among the small videos of `count`: down the right-hand column, then left along the bottom row.
PixelRect tilePlace(int count, int tile, MonitorPixels monitor);

} // namespace tandrel

/// Pictures as pixels, for what handlers read from them.
#pragma once

#include "platform/services.h"
#include "toolkit/types.h"

#include <vector>

namespace tandrel
{

/// A colour as one number, red in the lowest byte: 65536 * blue + 256 * green + red.
constexpr std::int32_t rgb(int red, int green, int blue) { return red | green << 8 | blue << 16; }

/// Rows of pixels from the top, each a colour as of `rgb`.
struct Bitmap {
    int width = 0;
    int height = 0;
    std::vector<std::int32_t> pixels;
};

/// A part of a window, as rectangles in pixels of it: sorted by rows, then from the left, without overlaps.
using Region = std::vector<PixelRect>;

} // namespace tandrel

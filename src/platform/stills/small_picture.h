/// A decoded picture made small.
#pragma once

#include "platform/services.h"

#include <optional>

struct AVFrame;

namespace tandrel
{

constexpr int kStillWidth = 120;
constexpr int kStillHeight = 68;

/// The size in which a picture is shown, in pixels: no side longer than these, and none longer than it is.
struct SmallSize {
    int width = 0;
    int height = 0;
    friend bool operator==(const SmallSize&, const SmallSize&) = default;
};
/// `aspect` is the width of a pixel by its height. At least one pixel each way.
SmallSize smallSize(int width, int height, double aspect, int quarterTurns);

/// The picture at this size, which is that before the turns. Empty where it can't be converted. `fine` takes its time
/// for the colours of edges.
std::optional<Still> pictureAt(const AVFrame& frame, SmallSize size, int quarterTurns, bool fine);

/// Empty where the picture can't be converted.
std::optional<Still> smallPicture(const AVFrame& frame, double aspect, int quarterTurns);

/// Hardly anything can be seen in it.
bool isNearlyBlack(const Still& still);

} // namespace tandrel

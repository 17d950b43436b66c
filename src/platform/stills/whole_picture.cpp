#include "platform/stills/whole_picture.h"

#include "platform/stills/picture_reader.h"
#include "platform/stills/small_picture.h"

#include <algorithm>
#include <cmath>

extern "C" {
#include <libavutil/frame.h>
}

namespace tandrel
{

namespace
{
// A picture in the middle of a long way from one key picture to the next, in the largest files there are.
constexpr PictureLimits kLimits{2LL << 30, 20000, false};
constexpr int kLongestSide = 16384;
} // namespace

std::optional<Still> readPicture(const std::string& path, double seconds, const std::function<bool()>& refuses)
{
    PictureReader reader(path, markOf(path), refuses, kLimits);
    if (!reader.open() || !reader.readExactly(seconds))
        return {};
    const AVFrame& frame = reader.frame();
    const double aspect = reader.pixelAspect();
    // Made larger rather than smaller, so that nothing of the picture is lost.
    SmallSize size{frame.width, frame.height};
    if (aspect > 1)
        size.width = std::min(kLongestSide, static_cast<int>(std::lround(frame.width * aspect)));
    else if (aspect > 0)
        size.height = std::min(kLongestSide, static_cast<int>(std::lround(frame.height / aspect)));
    return pictureAt(frame, size, reader.quarterTurns(), true);
}

} // namespace tandrel

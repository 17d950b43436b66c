#include "platform/stills/small_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>

extern "C" {
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

namespace tandrel
{

namespace
{
// Of 255, on average.
constexpr std::uint64_t kBlack = 16;
// What a file may tell of its pixels before it is taken for nonsense.
constexpr double kLeastAspect = 0.05;
constexpr double kMostAspect = 20;

struct Freed {
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};

void chooseColours(SwsContext* scaler, const AVFrame& frame)
{
    const bool hd = frame.width >= 1280 || frame.height > 576;
    const int matrix = frame.colorspace == AVCOL_SPC_BT709 || (frame.colorspace == AVCOL_SPC_UNSPECIFIED && hd)
                           ? SWS_CS_ITU709
                           : SWS_CS_ITU601;
    const int full = frame.color_range == AVCOL_RANGE_JPEG ? 1 : 0;
    // Formats that have no such details refuse, and need none.
    sws_setColorspaceDetails(scaler, sws_getCoefficients(matrix), full, sws_getCoefficients(SWS_CS_DEFAULT), 1, 0,
                             1 << 16, 1 << 16);
}

/// One quarter turn clockwise.
void turn(Still& still)
{
    std::vector<std::uint32_t> turned;
    turned.reserve(still.pixels.size());
    const auto width = static_cast<std::size_t>(still.width);
    for (std::size_t column = 0; column < width; ++column)
        for (auto row = static_cast<std::size_t>(still.height); row-- > 0;)
            turned.push_back(still.pixels[row * width + column]);
    still.pixels = std::move(turned);
    std::swap(still.width, still.height);
}
} // namespace

SmallSize smallSize(int width, int height, double aspect, int quarterTurns)
{
    double across = width * std::clamp(aspect, kLeastAspect, kMostAspect);
    double down = height;
    if (quarterTurns % 2 != 0)
        std::swap(across, down);
    const double scale = std::min({1.0, kStillWidth / across, kStillHeight / down});
    return {std::max(1, static_cast<int>(std::lround(across * scale))),
            std::max(1, static_cast<int>(std::lround(down * scale)))};
}

std::optional<Still> smallPicture(const AVFrame& frame, double aspect, int quarterTurns)
{
    SmallSize size = smallSize(frame.width, frame.height, aspect, quarterTurns);
    if (quarterTurns % 2 != 0)
        std::swap(size.width, size.height);
    return pictureAt(frame, size, quarterTurns, false);
}

std::optional<Still> pictureAt(const AVFrame& frame, SmallSize size, int quarterTurns, bool fine)
{
    const int ways = fine ? SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT : SWS_AREA | SWS_ACCURATE_RND;
    const std::unique_ptr<SwsContext, Freed> scaler(
        sws_getContext(frame.width, frame.height, static_cast<AVPixelFormat>(frame.format), size.width, size.height,
                       AV_PIX_FMT_RGB32, ways, nullptr, nullptr, nullptr));
    if (scaler == nullptr)
        return {};
    chooseColours(scaler.get(), frame);
    // Rows that the scaler may write behind: its fast ways use whole registers.
    const int stride = (size.width + 31) / 32 * 32;
    std::vector<std::uint32_t> rows(static_cast<std::size_t>(stride) * static_cast<std::size_t>(size.height + 1));
    const std::array<std::uint8_t*, 4> planes{reinterpret_cast<std::uint8_t*>(rows.data())};
    const std::array<int, 4> strides{stride * 4};
    if (sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, planes.data(), strides.data()) !=
        size.height)
        return {};
    Still still{size.width, size.height, {}, {}};
    still.pixels.reserve(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    for (int row = 0; row < size.height; ++row)
        for (int column = 0; column < size.width; ++column)
            still.pixels.push_back(rows[static_cast<std::size_t>(row * stride + column)] & 0xFFFFFF);
    for (int turns = 0; turns < quarterTurns; ++turns)
        turn(still);
    return still;
}

bool isNearlyBlack(const Still& still)
{
    std::uint64_t sum = 0;
    for (const std::uint32_t pixel : still.pixels)
        sum += (2 * (pixel >> 16 & 255) + 5 * (pixel >> 8 & 255) + (pixel & 255)) / 8;
    return sum < kBlack * still.pixels.size();
}

} // namespace tandrel

#include "platform/mpv/step_picture.h"

#include <array>
#include <sys/mman.h>

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

namespace tandrel
{

namespace
{
// Vector instructions of the scaler write and read whole blocks.
constexpr std::size_t kAlignment = 64;
constexpr int kColumns = 32;
// What the player tells its own scaler (mpv_handle.cpp).
constexpr int kScalerFlags = SWS_FAST_BILINEAR;
constexpr int kPixelBytes = 4;
constexpr int kMiddle = 128;
// On its way to the screen the player's scaler makes colours for pairs of pixels of every row. With fewer there would
// be a difference to be seen.
constexpr AVPixelFormat kKept = AV_PIX_FMT_YUV422P;

std::size_t roundedUp(int length, int step) { return static_cast<std::size_t>((length + step - 1) / step * step); }

struct Layout {
    explicit Layout(PictureSize size)
        : brightStride(roundedUp(size.width, kColumns)),
          colourStride(roundedUp((size.width + 1) / 2, kColumns)),
          brightBytes(brightStride * static_cast<std::size_t>(size.height)),
          colourBytes(colourStride * static_cast<std::size_t>(size.height))
    {
    }
    std::size_t brightStride, colourStride, brightBytes, colourBytes;
    std::size_t bytes() const { return (brightBytes + 2 * colourBytes + 2 * kAlignment - 1) / kAlignment * kAlignment; }
};

struct Planes {
    Planes(std::uint8_t* block, const Layout& layout)
        : data{block, block + layout.brightBytes, block + layout.brightBytes + layout.colourBytes, nullptr},
          strides{static_cast<int>(layout.brightStride), static_cast<int>(layout.colourStride),
                  static_cast<int>(layout.colourStride), 0}
    {
    }
    std::array<std::uint8_t*, 4> data;
    std::array<int, 4> strides;
};

/// The formats with a name of their own for the full range become the plain ones; the range is told apart from them.
AVPixelFormat plain(int format)
{
    switch (format) {
    case AV_PIX_FMT_YUVJ420P:
        return AV_PIX_FMT_YUV420P;
    case AV_PIX_FMT_YUVJ422P:
        return AV_PIX_FMT_YUV422P;
    case AV_PIX_FMT_YUVJ444P:
        return AV_PIX_FMT_YUV444P;
    default:
        return static_cast<AVPixelFormat>(format);
    }
}

struct ScalerEnd {
    PictureSize size;
    AVPixelFormat format;
};

/// The context before it is ready, so that more can be told it.
Scaler makeScaler(const ScalerEnd& source, const ScalerEnd& target)
{
    Scaler scaler(sws_alloc_context());
    const auto set = [&](const char* option, int value) { av_opt_set_int(scaler.get(), option, value, 0); };
    if (scaler == nullptr)
        return scaler;
    set("srcw", source.size.width);
    set("srch", source.size.height);
    set("src_format", source.format);
    set("dstw", target.size.width);
    set("dsth", target.size.height);
    set("dst_format", target.format);
    set("sws_flags", kScalerFlags);
    return scaler;
}

bool makeReady(Scaler& scaler)
{
    if (scaler != nullptr && sws_init_context(scaler.get(), nullptr, nullptr) < 0)
        scaler.reset();
    return scaler != nullptr;
}

void setColours(SwsContext* context, const PictureColours& colours, bool targetFullRange)
{
    constexpr int kNeutral = 1 << 16;
    const int* matrix = sws_getCoefficients(colours.matrix);
    sws_setColorspaceDetails(context, matrix, colours.fullRange ? 1 : 0, matrix, targetFullRange ? 1 : 0, 0, kNeutral,
                             kNeutral);
}
} // namespace

void FreeScaler::operator()(SwsContext* context) const { sws_freeContext(context); }

std::size_t StepPicture::bytesOf(PictureSize size) { return size.empty() ? 0 : Layout(size).bytes(); }

StepPicture::StepPicture(PictureSize size, PictureColours colours, std::shared_ptr<StepBudget> budget)
    : size_(size), colours_(colours), budget_(std::move(budget))
{
}

std::shared_ptr<StepPicture> StepPicture::make(PictureSize size, PictureColours colours,
                                               std::shared_ptr<StepBudget> budget)
{
    const std::size_t bytes = bytesOf(size);
    if (bytes == 0 || !budget->take(bytes))
        return nullptr;
    std::shared_ptr<StepPicture> picture(new StepPicture(size, colours, std::move(budget)));
    void* block = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (block == MAP_FAILED)
        return nullptr;
    picture->block_ = static_cast<std::uint8_t*>(block);
    return picture;
}

StepPicture::~StepPicture()
{
    if (block_ != nullptr)
        munmap(block_, bytesOf(size_));
    budget_->giveBack(bytesOf(size_));
}

bool StepPicture::fillFrom(const AVFrame& frame, Scaler& scaler)
{
    if (scaler == nullptr) {
        scaler = makeScaler({{frame.width, frame.height}, plain(frame.format)}, {size_, kKept});
        if (scaler == nullptr)
            return false;
        setColours(scaler.get(), colours_, colours_.fullRange);
        av_opt_set_int(scaler.get(), "src_h_chr_pos", colours_.colourX, 0);
        av_opt_set_int(scaler.get(), "src_v_chr_pos", colours_.colourY, 0);
        // As the player does for a screen, to the pixel.
        av_opt_set_int(scaler.get(), "dst_h_chr_pos", kMiddle, 0);
        av_opt_set_int(scaler.get(), "dst_v_chr_pos", kMiddle, 0);
        if (!makeReady(scaler))
            return false;
    }
    const Planes planes(block_, Layout(size_));
    return sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, planes.data.data(),
                     planes.strides.data()) == size_.height;
}

std::vector<std::uint8_t> StepPicture::pixels(PictureSize size) const
{
    Scaler scaler = makeScaler({size_, kKept}, {size, AV_PIX_FMT_BGRA});
    if (scaler == nullptr)
        return {};
    setColours(scaler.get(), colours_, true);
    if (!makeReady(scaler))
        return {};
    const Planes planes(block_, Layout(size_));
    const int stride = kPixelBytes * size.width;
    // The scaler may write a block beyond the last pixel.
    std::vector<std::uint8_t> result(static_cast<std::size_t>(stride) * static_cast<std::size_t>(size.height) +
                                     kAlignment);
    const std::array<std::uint8_t*, 4> target{result.data()};
    const std::array<int, 4> strides{stride};
    if (sws_scale(scaler.get(), planes.data.data(), planes.strides.data(), 0, size_.height, target.data(),
                  strides.data()) != size.height)
        return {};
    result.resize(static_cast<std::size_t>(stride) * static_cast<std::size_t>(size.height));
    return result;
}

} // namespace tandrel

/// A decoded picture at the size it is shown in, and its way to the pixels of the screen.
#pragma once

#include "platform/mpv/step_budget.h"

#include <cstdint>
#include <memory>
#include <vector>

struct AVFrame;
struct SwsContext;

namespace tandrel
{

/// Device pixels; nothing is shown where it is empty.
struct PictureSize {
    int width = 0;
    int height = 0;

    bool empty() const { return width <= 0 || height <= 0; }
    bool operator==(const PictureSize&) const = default;
};

/// How the numbers of a picture become colours.
struct PictureColours {
    /// As libswscale counts matrices (SWS_CS_...).
    int matrix = 0;
    bool fullRange = false;
    /// Where in a block of pixels its colour was taken, in 256ths of a pixel.
    int colourX = 0;
    int colourY = 128;

    bool operator==(const PictureColours&) const = default;
};

struct FreeScaler {
    void operator()(SwsContext* context) const;
};
using Scaler = std::unique_ptr<SwsContext, FreeScaler>;

/// Planar YUV with a pair of colour values for two pixels: half of what the screen takes.
class StepPicture
{
public:
    /// Null where the budget has no room for it.
    static std::shared_ptr<StepPicture> make(PictureSize size, PictureColours colours,
                                             std::shared_ptr<StepBudget> budget);
    ~StepPicture();
    StepPicture(const StepPicture&) = delete;
    StepPicture& operator=(const StepPicture&) = delete;

    /// What one of this size takes.
    static std::size_t bytesOf(PictureSize size);

    PictureSize size() const { return size_; }
    /// Scales a frame into this picture. `scaler` is kept by the caller from one frame to the next. False if that
    /// cannot be done.
    bool fillFrom(const AVFrame& frame, Scaler& scaler);
    /// Its pixels at this size, as an X server wants them: four bytes each, blue first. Empty if that cannot be done.
    std::vector<std::uint8_t> pixels(PictureSize size) const;

private:
    StepPicture(PictureSize size, PictureColours colours, std::shared_ptr<StepBudget> budget);

    const PictureSize size_;
    const PictureColours colours_;
    const std::shared_ptr<StepBudget> budget_;
    /// Mapped by itself, so that it goes back to the system at once.
    std::uint8_t* block_ = nullptr;
};

} // namespace tandrel

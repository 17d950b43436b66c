// Where the picture stands, and when the output has drawn it there: a part of MpvDevice.
#include "platform/mpv/mpv_device.h"

#include <cmath>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

// An output that does not say so is not waited for much longer than twelve of them take to draw.
constexpr auto kDrawLimit = 200ms;

int scaled(int length, double ratio) { return static_cast<int>(std::lround(length * ratio)); }
} // namespace

void MpvDevice::moveInto(WindowHandle parent, double pixelRatio)
{
    if (window_ == nullptr)
        return;
    window_->moveInto(parent);
    pixelRatio_ = pixelRatio;
}

void MpvDevice::put(const PixelRect& place)
{
    if (window_ == nullptr)
        return;
    const PixelRect inPixels{scaled(place.left, pixelRatio_), scaled(place.top, pixelRatio_),
                             scaled(place.right, pixelRatio_), scaled(place.bottom, pixelRatio_)};
    window_->put(inPixels, facts_.width);
    const bool isSeen = inPixels.width() > 0 && inPixels.height() > 0;
    canvas_ = {isSeen ? canvasWidth(inPixels.width(), facts_.width) : 0, inPixels.height()};
    sizePictures(canvas_);
    drawing_ = isSeen && !running_ && facts_.frameRate > 0 ? Drawing::Unasked : Drawing::Done;
}

std::uint64_t MpvDevice::askOutput() { return channel_.ask("current-window-scale", MPV_FORMAT_DOUBLE); }

void MpvDevice::awaitDrawing()
{
    if (drawing_ != Drawing::Unasked)
        return;
    drawUntil_ = MpvChannel::Moment::clock::now() + kDrawLimit;
    askDrawing();
}

void MpvDevice::askDrawing()
{
    drawing_ = Drawing::Asked;
    // The size of what has been drawn last.
    channel_.ask("osd-width", MPV_FORMAT_INT64);
    drawingAsked_ = channel_.ask("osd-height", MPV_FORMAT_INT64);
}

void MpvDevice::hearDrawing(const mpv_event& event)
{
    const auto number = [&] {
        return event.error >= 0 ? *static_cast<const std::int64_t*>(static_cast<mpv_event_property*>(event.data)->data)
                                : -1;
    };
    if (drawing_ == Drawing::Asked && event.reply_userdata + 1 == drawingAsked_) {
        drawnWidth_ = number();
    } else if (event.reply_userdata == drawingAsked_ && drawing_ == Drawing::Asked) {
        if (drawnWidth_ == canvas_.width && number() == canvas_.height) {
            drawing_ = Drawing::Flushing;
            flushes_ = 0;
            drawingAsked_ = askOutput();
        } else {
            drawing_ = Drawing::Elsewhere;
        }
    } else if (event.reply_userdata == drawingAsked_ && drawing_ == Drawing::Flushing) {
        drawingAsked_ = ++flushes_ < kOutputTurns ? askOutput() : 0;
        if (drawingAsked_ == 0)
            drawing_ = Drawing::Done;
    }
}

bool MpvDevice::isDrawn()
{
    if (drawing_ == Drawing::Elsewhere)
        askDrawing();
    return drawing_ == Drawing::Done || drawing_ == Drawing::Unasked || MpvChannel::Moment::clock::now() >= drawUntil_;
}

} // namespace tandrel

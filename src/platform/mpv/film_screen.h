/// Where a film is seen: its picture on a black ground.
#pragma once

#include "platform/output/picture_window.h"

#include <mutex>

namespace tandrel
{

/// The largest rectangle of these proportions in the middle of `place`; `place` itself where they are not known.
PixelRect fitInto(const PixelRect& place, int width, int height);

/// Lengths are device pixels. May be used on any thread.
class FilmScreen
{
public:
    /// Out of sight at first.
    explicit FilmScreen(WindowSystem& system);

    /// The window to draw in.
    WindowHandle canvas() const { return picture_.canvas(); }
    /// An empty place hides all of it.
    void showIn(WindowHandle parent, const PixelRect& place);
    /// The picture comes up when its size is known.
    void setSize(int width, int height);
    /// Out of sight and out of its parent for good: that may end before the one who draws.
    void leave();

private:
    void put();

    std::mutex mutex_;
    /// Nobody draws in the canvas of this one, and so it stays black.
    PictureWindow ground_;
    PictureWindow picture_;
    WindowHandle parent_ = 0;
    PixelRect place_;
    int width_ = 0;
    int height_ = 0;
    bool left_ = false;
};

} // namespace tandrel

/// A picture that stands in front of what the player draws.
#pragma once

#include "platform/mpv/step_picture.h"
#include "platform/output/picture_window.h"

#include <mutex>

namespace tandrel
{

/// A window without a listener, above the player's canvas in the same parent. The X server paints it by itself.
class StillWindow
{
public:
    StillWindow(WindowSystem& system, WindowHandle parent);
    ~StillWindow();
    StillWindow(const StillWindow&) = delete;
    StillWindow& operator=(const StillWindow&) = delete;

    /// Shows the picture at this size. False where the server's pixels are of a kind that is not known here.
    bool show(const StepPicture& picture, PictureSize size);
    /// For any thread.
    void hide();
    bool shown();
    /// Waits until the server has drawn everything.
    void sync();

private:
    void create();
    bool knowsPixels();
    void draw(const std::vector<std::uint8_t>& pixels, PictureSize size, xcb_pixmap_t target);

    WindowSystem& system_;
    xcb_connection_t* connection_;
    WindowHandle parent_;
    /// 0 until the first picture.
    xcb_window_t window_ = 0;
    xcb_gcontext_t context_ = 0;
    std::uint8_t depth_ = 0;
    bool refused_ = false;
    std::mutex mutex_;
    bool shown_ = false;
    bool drawing_ = false;
};

} // namespace tandrel

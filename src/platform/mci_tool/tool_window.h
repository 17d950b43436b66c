/// A window to show pictures in, for a program without a toolkit.
#pragma once

#include "platform/services.h"

#include <cstdint>
#include <xcb/xcb.h>

namespace tandrel
{

/// On the screen when the constructor returns; `handle` is 0 where there is no X server.
class ToolWindow
{
public:
    ToolWindow(const char* title, std::uint16_t width, std::uint16_t height);
    ~ToolWindow();
    ToolWindow(const ToolWindow&) = delete;
    ToolWindow& operator=(const ToolWindow&) = delete;

    WindowHandle handle() const { return window_; }

private:
    void waitUntilShown();

    xcb_connection_t* connection_;
    xcb_window_t window_ = 0;
};

} // namespace tandrel

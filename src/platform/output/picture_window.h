/// The windows that pictures are shown in. Lengths are device pixels.
#pragma once

#include "platform/services.h"

#include <memory>
#include <optional>
#include <xcb/xcb.h>

namespace tandrel
{

/// A connection to the X server of its own. It hears no events.
class WindowSystem
{
public:
    WindowSystem();
    ~WindowSystem();
    WindowSystem(const WindowSystem&) = delete;
    WindowSystem& operator=(const WindowSystem&) = delete;

    /// False also where there is no X server.
    bool isWindow(WindowHandle window);
    /// Throws away the errors that requests to vanished windows have left.
    void discardErrors();

    xcb_connection_t* connection() const { return connection_; }
    WindowHandle root() const;

private:
    xcb_connection_t* connection_;
};

/// How wide a picture is drawn that is shown `width` pixels wide; the rest is cut off. Measured with libswscale 6.7: to
/// an odd width it takes four times as long, because its fast ways write pairs of pixels; to a multiple of 16 below the
/// picture's own width nearly twice as long.
int canvasWidth(int width, int nativeWidth);

/// A window inside another that takes no input: pointer and keys reach the windows below it. It is hidden at first.
/// Nothing happens where the parent, and the window with it, has gone.
class PictureWindow
{
public:
    /// Without a parent it waits out of sight for one.
    PictureWindow(WindowSystem& system, std::optional<WindowHandle> parent);
    ~PictureWindow();
    PictureWindow(const PictureWindow&) = delete;
    PictureWindow& operator=(const PictureWindow&) = delete;

    /// The window to draw in. It fills this one, up to a few pixels wider.
    WindowHandle canvas() const { return canvas_; }
    void moveInto(WindowHandle parent);
    /// The window around the canvas, for others to put something in front of that.
    WindowHandle frame() const { return window_; }
    WindowSystem& system() const { return system_; }
    /// For players whose own windows ask for the pointer: it passes through all the same.
    void refuseInput();
    /// Shows the window at this place, or hides it if the rectangle is empty. The picture to come is so wide by itself.
    void put(const PixelRect& place, int nativeWidth);

private:
    WindowSystem& system_;
    xcb_window_t window_;
    xcb_window_t canvas_;
};

} // namespace tandrel

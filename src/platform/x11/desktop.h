/// The windows of all programs on the X server, by the rules of ICCCM and EWMH.
#pragma once

#include "platform/services.h"

#include <map>
#include <string>
#include <xcb/xcb.h>

namespace tandrel
{

class X11Desktop : public Desktop
{
public:
    /// By `_NET_CLIENT_LIST`, or the children of the root window, from the front.
    std::vector<WindowHandle> topWindows() const override;
    /// By `_NET_WM_PID`.
    long processOf(WindowHandle window) const override;
    /// By `WM_TRANSIENT_FOR`.
    WindowHandle parentOf(WindowHandle window) const override;
    /// Waits up to 0.3 s for a window manager that has to let go of the window first.
    bool setParent(WindowHandle window, WindowHandle parent) override;
    std::optional<PixelRect> windowRect(WindowHandle window) const override;

    /// The process has put up a window.
    bool hasWindow(long process) const;

private:
    /// Device pixels.
    struct Place {
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
    };
    std::vector<std::uint32_t> numbers(WindowHandle window, const char* property, xcb_atom_t type) const;
    xcb_atom_t atom(const std::string& name) const;
    std::optional<Place> placeOf(WindowHandle window) const;
    /// The window that the window manager has put around it, or itself.
    WindowHandle frameOf(WindowHandle window) const;
    std::vector<WindowHandle> screenOrder() const;
    bool isManaged(WindowHandle window) const;
    bool windowManagerRuns() const;
    /// It stands where it was put: a window that has gone may have left its number to another one.
    bool isTaken(WindowHandle window) const;
    void withdraw(WindowHandle window) const;
    bool reparent(WindowHandle window, WindowHandle parent, int x, int y) const;

    /// Windows of others that stand in ours, and what they stand in.
    std::map<WindowHandle, WindowHandle> taken_;
    mutable std::map<std::string, xcb_atom_t> atoms_;
};

} // namespace tandrel

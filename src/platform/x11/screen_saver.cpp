#include "platform/x11/screen_saver.h"

#include "platform/x11/connection.h"

#include <xcb/screensaver.h>

namespace tandrel
{

void X11ScreenSaver::enable(bool on)
{
    xcb_connection_t* display = connection();
    if (!display || held_ != on)
        return;
    const auto* extension = xcb_get_extension_data(display, &xcb_screensaver_id);
    if (!extension || !extension->present)
        return;
    held_ = !on;
    xcb_screensaver_suspend(display, held_ ? 1 : 0);
    xcb_flush(display);
}

void X11ScreenSaver::nudge()
{
    if (xcb_connection_t* display = connection()) {
        xcb_force_screen_saver(display, XCB_SCREEN_SAVER_RESET);
        xcb_flush(display);
    }
}

} // namespace tandrel

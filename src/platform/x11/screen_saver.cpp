#include "platform/x11/screen_saver.h"

#include <QGuiApplication>

#include <xcb/screensaver.h>
#include <xcb/xcb.h>

namespace tandrel
{

void X11ScreenSaver::enable(bool on)
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || held_ != on)
        return;
    xcb_connection_t* display = x11->connection();
    const auto* extension = xcb_get_extension_data(display, &xcb_screensaver_id);
    if (!extension || !extension->present)
        return;
    held_ = !on;
    xcb_screensaver_suspend(display, held_ ? 1 : 0);
    xcb_flush(display);
}

} // namespace tandrel

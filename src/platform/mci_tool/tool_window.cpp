#include "tool_window.h"

#include <cstdlib>
#include <cstring>
#include <poll.h>

namespace tandrel
{

namespace
{
constexpr int kShowLimitMs = 2000;
} // namespace

ToolWindow::ToolWindow(const char* title, std::uint16_t width, std::uint16_t height)
    : connection_(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(connection_) != 0)
        return;
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    window_ = xcb_generate_id(connection_);
    const std::uint32_t values[]{screen->black_pixel, XCB_EVENT_MASK_EXPOSURE};
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0, width, height, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK,
                      values);
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(std::strlen(title)), title);
    xcb_map_window(connection_, window_);
    xcb_flush(connection_);
    waitUntilShown();
}

ToolWindow::~ToolWindow() { xcb_disconnect(connection_); }

void ToolWindow::waitUntilShown()
{
    pollfd waiting{xcb_get_file_descriptor(connection_), POLLIN, 0};
    while (true) {
        while (xcb_generic_event_t* event = xcb_poll_for_event(connection_)) {
            const bool exposed = (event->response_type & 0x7f) == XCB_EXPOSE;
            std::free(event);
            if (exposed)
                return;
        }
        if (poll(&waiting, 1, kShowLimitMs) <= 0)
            return;
    }
}

} // namespace tandrel

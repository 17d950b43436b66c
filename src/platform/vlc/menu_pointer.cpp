#include "platform/vlc/menu_pointer.h"

namespace tandrel
{

namespace
{
void send(PictureWindow& picture, std::uint8_t kind, xcb_event_mask_t mask, PixelPoint place)
{
    const xcb_window_t window = picture.canvas();
    // Events of motion and of buttons have the same fields.
    xcb_button_press_event_t event = {};
    event.response_type = kind;
    event.detail = kind == XCB_MOTION_NOTIFY ? 0 : XCB_BUTTON_INDEX_1;
    event.time = XCB_CURRENT_TIME;
    event.root = picture.system().root();
    event.event = window;
    event.event_x = static_cast<std::int16_t>(place.x);
    event.event_y = static_cast<std::int16_t>(place.y);
    event.state = kind == XCB_BUTTON_RELEASE ? XCB_BUTTON_MASK_1 : 0;
    event.same_screen = 1;
    xcb_send_event(picture.system().connection(), 0, window, mask, reinterpret_cast<const char*>(&event));
    xcb_flush(picture.system().connection());
}
} // namespace

void tellPointerMoved(PictureWindow& picture, PixelPoint place)
{
    send(picture, XCB_MOTION_NOTIFY, XCB_EVENT_MASK_POINTER_MOTION, place);
}

void tellPointerPressed(PictureWindow& picture, PixelPoint place)
{
    tellPointerMoved(picture, place);
    send(picture, XCB_BUTTON_PRESS, XCB_EVENT_MASK_BUTTON_PRESS, place);
    send(picture, XCB_BUTTON_RELEASE, XCB_EVENT_MASK_BUTTON_RELEASE, place);
}

} // namespace tandrel

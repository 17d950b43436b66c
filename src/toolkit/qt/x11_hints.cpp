#include "toolkit/qt/x11_hints.h"

#include <QGuiApplication>
#include <QWidget>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>
#include <xcb/shape.h>

namespace tandrel
{

namespace
{

struct FreeDeleter {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using ReplyPtr = std::unique_ptr<Reply, FreeDeleter>;

xcb_connection_t* connection()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_window_t rootWindow(xcb_connection_t* display)
{
    return xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
}

xcb_atom_t atom(xcb_connection_t* display, const char* name)
{
    const auto cookie = xcb_intern_atom(display, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const ReplyPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(display, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace

bool windowManagerPresent()
{
    xcb_connection_t* display = connection();
    if (!display)
        return false;
    const auto cookie = xcb_get_property(display, 0, rootWindow(display), atom(display, "_NET_SUPPORTING_WM_CHECK"),
                                         XCB_ATOM_WINDOW, 0, 1);
    const ReplyPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(display, cookie, nullptr));
    return reply && xcb_get_property_value_length(reply.get()) > 0;
}

bool leftButtonMayBeHeld()
{
    xcb_connection_t* display = connection();
    if (!display)
        return true;
    const auto cookie = xcb_query_pointer(display, rootWindow(display));
    const ReplyPtr<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(display, cookie, nullptr));
    return !reply || (reply->mask & XCB_BUTTON_MASK_1) != 0;
}

bool standsOnScreen(QWidget& window)
{
    // ICCCM, section 4.1.3.1: the first of two numbers.
    constexpr std::uint32_t kNormalState = 1;
    xcb_connection_t* display = connection();
    if (!display)
        return false;
    const xcb_atom_t property = atom(display, "WM_STATE");
    const auto cookie =
        xcb_get_property(display, 0, static_cast<xcb_window_t>(window.winId()), property, property, 0, 2);
    const ReplyPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(display, cookie, nullptr));
    return reply && reply->format == 32 && xcb_get_property_value_length(reply.get()) >= 4 &&
           *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())) == kNormalState;
}

bool screenBlendsWindows()
{
    xcb_connection_t* display = connection();
    if (!display)
        return true;
    const auto cookie = xcb_get_selection_owner(display, atom(display, "_NET_WM_CM_S0"));
    const ReplyPtr<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(display, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

bool cutToDevicePixels(QWidget& window, const Region& region)
{
    xcb_connection_t* display = connection();
    if (!display)
        return false;
    std::vector<xcb_rectangle_t> strips;
    strips.reserve(region.size());
    for (const PixelRect& strip : region)
        strips.push_back({static_cast<std::int16_t>(strip.left), static_cast<std::int16_t>(strip.top),
                          static_cast<std::uint16_t>(strip.width()), static_cast<std::uint16_t>(strip.height())});
    xcb_shape_rectangles(display, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_YX_BANDED,
                         static_cast<xcb_window_t>(window.winId()), 0, 0, static_cast<std::uint32_t>(strips.size()),
                         strips.data());
    xcb_flush(display);
    return true;
}

void announceState(QWidget& window, const char* state, bool on)
{
    if (!windowManagerPresent())
        return;
    xcb_connection_t* display = connection();
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(window.winId());
    message.type = atom(display, "_NET_WM_STATE");
    message.data.data32[0] = on ? 1 : 0;
    message.data.data32[1] = atom(display, state);
    message.data.data32[3] = 1;
    xcb_send_event(display, 0, rootWindow(display),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(display);
}

} // namespace tandrel

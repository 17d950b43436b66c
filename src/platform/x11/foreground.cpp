#include "platform/x11/foreground.h"

#include "platform/x11/connection.h"

namespace tandrel
{

namespace
{

constexpr std::uint32_t kByTheUser = 2;

xcb_atom_t atomOf(xcb_connection_t* display, std::string_view name)
{
    const auto cookie = xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const ReplyPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(display, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace

void askForForeground(WindowHandle window)
{
    xcb_connection_t* display = connection();
    if (!display || window == 0)
        return;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atomOf(display, "_NET_ACTIVE_WINDOW");
    message.data.data32[0] = kByTheUser;
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(display, 0, rootWindow(display),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(display);
}

} // namespace tandrel

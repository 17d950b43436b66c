#include "platform/x11/file_calls.h"

#include "platform/file_calls.h"
#include "platform/x11/connection.h"

#include <array>
#include <cstring>
#include <unistd.h>

namespace tandrel
{

namespace
{

xcb_atom_t atom(xcb_connection_t* display, const char* name)
{
    const auto cookie = xcb_intern_atom(display, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const ReplyPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(display, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace

X11FileCalls::X11FileCalls(std::function<void()> called) : called_(std::move(called))
{
    xcb_connection_t* display = connection();
    if (!display)
        return;
    listens_ = atom(display, file_calls::kListens);
    call_ = atom(display, file_calls::kCall);
    qApp->installNativeEventFilter(this);
}

X11FileCalls::~X11FileCalls()
{
    if (qApp)
        qApp->removeNativeEventFilter(this);
}

void X11FileCalls::listenOn(WindowHandle console)
{
    console_ = console;
    tellCount();
}

void X11FileCalls::tellCount() const
{
    xcb_connection_t* display = connection();
    if (!display || console_ == 0)
        return;
    const std::array<std::uint32_t, 2> values{static_cast<std::uint32_t>(::getpid()), heard_};
    xcb_change_property(display, XCB_PROP_MODE_REPLACE, console_, listens_, XCB_ATOM_CARDINAL, 32, values.size(),
                        values.data());
    xcb_flush(display);
}

bool X11FileCalls::nativeEventFilter(const QByteArray& type, void* message, qintptr*)
{
    if (type != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_client_message_event_t*>(message);
    if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE || event->window != console_ || event->type != call_)
        return false;
    ++heard_;
    // Who calls learns by this that the program lives, whenever the files are taken.
    tellCount();
    called_();
    return true;
}

} // namespace tandrel

/// What the program's own requests to the X server share.
#pragma once

#include <QGuiApplication>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace tandrel
{

struct FreeDeleter {
    void operator()(void* reply) const { std::free(reply); }
};
/// The answer to a request; null if there was an error.
template <class Reply>
using ReplyPtr = std::unique_ptr<Reply, FreeDeleter>;

/// The connection of the application object; null where it does not run on X11.
inline xcb_connection_t* connection()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

inline xcb_window_t rootWindow(xcb_connection_t* display)
{
    return xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
}

} // namespace tandrel

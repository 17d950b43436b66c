#include "codec_settings/embedding.h"

#include "platform/x11/connection.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QTimer>
#include <QWidget>

#include <cstring>

namespace tandrel
{

namespace
{

/// A window manager marks the windows it has put into frames of its own.
bool isManaged(xcb_connection_t* display, xcb_window_t window)
{
    constexpr const char* kMark = "WM_STATE";
    const auto named = xcb_intern_atom(display, 1, static_cast<std::uint16_t>(std::strlen(kMark)), kMark);
    const ReplyPtr<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(display, named, nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return false;
    const auto asked = xcb_get_property(display, 0, window, atom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, 1);
    const ReplyPtr<xcb_get_property_reply_t> state(xcb_get_property_reply(display, asked, nullptr));
    // The first word is the state; 0 is "withdrawn".
    return state && xcb_get_property_value_length(state.get()) >= 4 &&
           *static_cast<const std::uint32_t*>(xcb_get_property_value(state.get())) != 0;
}

bool isInsideAnother(xcb_connection_t* display, xcb_window_t window)
{
    const ReplyPtr<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(display, xcb_query_tree(display, window), nullptr));
    return tree && tree->parent != tree->root && !isManaged(display, window);
}

bool isMapped(xcb_connection_t* display, xcb_window_t window)
{
    const auto asked = xcb_get_window_attributes(display, window);
    const ReplyPtr<xcb_get_window_attributes_reply_t> state(xcb_get_window_attributes_reply(display, asked, nullptr));
    return state && state->map_state != XCB_MAP_STATE_UNMAPPED;
}

} // namespace

Embedding::Embedding(QWidget& window) : window_(window)
{
    if (connection() == nullptr)
        return;
    QCoreApplication::instance()->installNativeEventFilter(this);
    QCoreApplication::instance()->installEventFilter(this);
}

Embedding::~Embedding() = default;

bool Embedding::nativeEventFilter(const QByteArray&, void* message, qintptr*)
{
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    constexpr int kSent = 0x80;
    const int kind = event->response_type & ~kSent;
    const auto own = static_cast<xcb_window_t>(window_.internalWinId());
    if (kind == XCB_DESTROY_NOTIFY && reinterpret_cast<const xcb_destroy_notify_event_t*>(event)->window == own)
        QCoreApplication::exit(0);
    const bool unmapped =
        kind == XCB_UNMAP_NOTIFY && reinterpret_cast<const xcb_unmap_notify_event_t*>(event)->window == own;
    // A window manager lets go of a window by its marks, after it has put it out of sight.
    const bool marked =
        kind == XCB_PROPERTY_NOTIFY && reinterpret_cast<const xcb_property_notify_event_t*>(event)->window == own;
    if ((unmapped || marked) && !looks_) {
        looks_ = true;
        QTimer::singleShot(0, this, &Embedding::comeUp);
    }
    return false;
}

void Embedding::comeUp()
{
    looks_ = false;
    xcb_connection_t* display = connection();
    const auto own = static_cast<xcb_window_t>(window_.internalWinId());
    if (display == nullptr || !window_.isVisible() || isMapped(display, own) || !isInsideAnother(display, own))
        return;
    xcb_map_window(display, own);
    xcb_flush(display);
}

bool Embedding::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonPress || window_.isActiveWindow())
        return false;
    xcb_connection_t* display = connection();
    const auto window = static_cast<xcb_window_t>(window_.internalWinId());
    if (display != nullptr && isInsideAnother(display, window)) {
        xcb_set_input_focus(display, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        xcb_flush(display);
    }
    return false;
}

} // namespace tandrel

#include "platform/x11/raw_presses.h"

#include "platform/x11/connection.h"

#include <xcb/xinput.h>

namespace tandrel
{

namespace
{

// A press that came to no window of ours in this time was meant for another program.
constexpr qint64 kOnItsWayMs = 1000;
constexpr std::uint32_t kLastRealButton = 3;

bool speaksRawEvents(xcb_connection_t* display)
{
    const ReplyPtr<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(display, xcb_input_xi_query_version(display, 2, 2), nullptr));
    return version && (version->major_version > 2 || (version->major_version == 2 && version->minor_version >= 1));
}

void selectRawPresses(xcb_connection_t* display)
{
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS};
    xcb_input_xi_select_events(display, rootWindow(display), 1, &selection.head);
}

} // namespace

RawPresses::RawPresses()
{
    xcb_connection_t* display = connection();
    if (!display)
        return;
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(display, &xcb_input_id);
    if (!extension || !extension->present || !speaksRawEvents(display))
        return;
    opcode_ = extension->major_opcode;
    selectRawPresses(display);
    qApp->installNativeEventFilter(this);
}

RawPresses::~RawPresses()
{
    if (qApp)
        qApp->removeNativeEventFilter(this);
}

bool RawPresses::undelivered() const { return since_.isValid() && since_.elapsed() < kOnItsWayMs; }

void RawPresses::delivered() { since_.invalidate(); }

bool RawPresses::nativeEventFilter(const QByteArray& type, void* message, qintptr*)
{
    if (type != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_ge_generic_event_t*>(message);
    if ((event->response_type & 0x7f) != XCB_GE_GENERIC || event->extension != opcode_ ||
        event->event_type != XCB_INPUT_RAW_BUTTON_PRESS)
        return false;
    // The buttons above are turns of the wheel, which windows are told of in another way.
    if (static_cast<const xcb_input_raw_button_press_event_t*>(message)->detail <= kLastRealButton)
        since_.start();
    return false;
}

} // namespace tandrel

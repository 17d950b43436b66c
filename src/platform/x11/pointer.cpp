#include "platform/x11/pointer.h"

#include "platform/x11/connection.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>

#include <utility>
#include <xcb/xfixes.h>

namespace tandrel
{

namespace
{

// A press that nobody asked for in this time is old: it must not be taken for the cause of something later.
constexpr qint64 kLatchMs = 400;
// So long the windows may be told of a press after the mask has shown it: the program may be busy meanwhile.
constexpr qint64 kForeseenMs = 1000;

unsigned buttonMask()
{
    xcb_connection_t* display = connection();
    if (!display)
        return 0;
    const auto cookie = xcb_query_pointer(display, rootWindow(display));
    const ReplyPtr<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(display, cookie, nullptr));
    return reply ? reply->mask : 0;
}

} // namespace

X11Pointer::X11Pointer()
{
    qApp->installEventFilter(this);
    if (xcb_connection_t* display = connection()) {
        const ReplyPtr<xcb_xfixes_query_version_reply_t> version(
            xcb_xfixes_query_version_reply(display, xcb_xfixes_query_version(display, 4, 0), nullptr));
        speaksFixes_ = version && version->major_version >= 4;
    }
}

X11Pointer::~X11Pointer() { X11Pointer::showCursor(true); }

bool X11Pointer::latched(Button& state) const
{
    const bool fresh = state.pressed.isValid() && state.pressed.elapsed() < kLatchMs;
    state.pressed.invalidate();
    return fresh;
}

bool X11Pointer::buttonDown(MouseButton button)
{
    Button& state = buttons_[button];
    if (state.upIsDue) {
        state.upIsDue = state.toldDown = false;
        return false;
    }
    const unsigned bit = button == MouseButton::Left ? XCB_BUTTON_MASK_1 : XCB_BUTTON_MASK_3;
    const bool wasDown = state.toldDown;
    const bool isLatched = latched(state);
    state.toldDown = isLatched || (buttonMask() & bit) != 0;
    if (state.toldDown && !isLatched && !wasDown && !state.held) {
        state.foreseen.start();
        state.spentForeseen = false;
    }
    state.letGo = false;
    return state.toldDown;
}

bool X11Pointer::spend(MouseButton button)
{
    Button& state = buttons_[button];
    state.spentForeseen = state.foreseen.isValid() && state.foreseen.elapsed() < kForeseenMs;
    return state.spentForeseen;
}

bool X11Pointer::controlDown() const { return (buttonMask() & XCB_KEY_BUT_MASK_CONTROL) != 0; }

bool X11Pointer::pressOnItsWay() const { return raw_.undelivered(); }

PixelPoint X11Pointer::position() const
{
    const QPoint at = QCursor::pos();
    return {at.x(), at.y()};
}

void X11Pointer::moveTo(PixelPoint place) { QCursor::setPos(place.x, place.y); }

void X11Pointer::showCursor(bool on)
{
    if (on != hidden_)
        return;
    hidden_ = !on;
    xcb_connection_t* display = speaksFixes_ ? connection() : nullptr;
    if (!display) {
        if (on)
            QGuiApplication::restoreOverrideCursor();
        else
            QGuiApplication::setOverrideCursor(Qt::BlankCursor);
        return;
    }
    if (on)
        xcb_xfixes_show_cursor(display, rootWindow(display));
    else
        xcb_xfixes_hide_cursor(display, rootWindow(display));
    xcb_flush(display);
}

void X11Pointer::notePress(MouseButton pressed)
{
    // A new press is the latest cause there is: an older one that nobody asked for is none any more.
    for (auto& [button, state] : buttons_)
        if (button != pressed)
            state.pressed.invalidate();
    Button& state = buttons_[pressed];
    state.upIsDue = state.toldDown && state.letGo;
    state.held = true;
    const bool isKnown = state.foreseen.isValid() && state.foreseen.elapsed() < kForeseenMs;
    state.foreseen.invalidate();
    if (!std::exchange(state.spentForeseen, false) || !isKnown)
        state.pressed.start();
}

void X11Pointer::noteRelease(MouseButton released)
{
    Button& state = buttons_[released];
    state.letGo = true;
    state.held = false;
}

bool X11Pointer::eventFilter(QObject* watched, QEvent* event)
{
    const bool press = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    // Windows hear of it first and once, their widgets after them.
    if (!watched->isWindowType() || (!press && event->type() != QEvent::MouseButtonRelease))
        return false;
    const auto button = static_cast<QMouseEvent*>(event)->button();
    if (press)
        raw_.delivered();
    if (button != Qt::LeftButton && button != Qt::RightButton)
        return false;
    const auto which = button == Qt::LeftButton ? MouseButton::Left : MouseButton::Right;
    if (press)
        notePress(which);
    else
        noteRelease(which);
    return false;
}

} // namespace tandrel

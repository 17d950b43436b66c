#include "platform/x11/pointer.h"

#include "platform/x11/connection.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>

namespace tandrel
{

namespace
{

// A press that nobody asked for in this time is old: it must not be taken for the cause of something later.
constexpr qint64 kLatchMs = 400;

Qt::MouseButton qtButton(MouseButton button) { return button == MouseButton::Left ? Qt::LeftButton : Qt::RightButton; }

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

X11Pointer::X11Pointer() { qApp->installEventFilter(this); }

bool X11Pointer::buttonDown(MouseButton button)
{
    const auto latch = pressed_.find(button);
    const bool latched = latch != pressed_.end() && latch->second.elapsed() < kLatchMs;
    if (latch != pressed_.end())
        pressed_.erase(latch);
    const unsigned bit = button == MouseButton::Left ? XCB_BUTTON_MASK_1 : XCB_BUTTON_MASK_3;
    return latched || (buttonMask() & bit) != 0;
}

bool X11Pointer::pressOnItsWay() const { return raw_.undelivered(); }

PixelPoint X11Pointer::position() const
{
    const QPoint at = QCursor::pos();
    return {at.x(), at.y()};
}

void X11Pointer::moveTo(PixelPoint place) { QCursor::setPos(place.x, place.y); }

bool X11Pointer::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonPress)
        return false;
    raw_.delivered();
    const auto button = static_cast<QMouseEvent*>(event)->button();
    // A new press is the latest cause there is: an older one that nobody asked for is none any more. The same press is
    // seen by a window and its widgets, one after the other.
    for (auto latch = pressed_.begin(); latch != pressed_.end();)
        latch = qtButton(latch->first) == button ? std::next(latch) : pressed_.erase(latch);
    if (button == Qt::LeftButton)
        pressed_[MouseButton::Left].start();
    else if (button == Qt::RightButton)
        pressed_[MouseButton::Right].start();
    return false;
}

} // namespace tandrel

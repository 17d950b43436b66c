/// Hears the calls of `tandrel-open` to the console's window.
#pragma once

#include "platform/services.h"

#include <QAbstractNativeEventFilter>

#include <functional>
#include <xcb/xcb.h>

namespace tandrel
{

/// Where the program doesn't run on X11 there are no calls.
class X11FileCalls : public QAbstractNativeEventFilter
{
public:
    /// `called` runs on the user-interface thread at each call. It may be in the middle of a handler that has events
    /// looked at.
    explicit X11FileCalls(std::function<void()> called);
    ~X11FileCalls() override;
    X11FileCalls(const X11FileCalls&) = delete;

    /// The window that calls are sent to, from here on.
    void listenOn(WindowHandle console);
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
    void tellCount() const;

    std::function<void()> called_;
    xcb_atom_t listens_ = XCB_ATOM_NONE;
    xcb_atom_t call_ = XCB_ATOM_NONE;
    WindowHandle console_ = 0;
    std::uint32_t heard_ = 0;
};

} // namespace tandrel

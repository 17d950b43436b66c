/// The screen saver of the desktop.
#pragma once

#include "platform/dbus/idle_hold.h"
#include "platform/services.h"

#include <QObject>

#include <memory>

namespace tandrel
{

class Post;

/// Asks the session bus to hold the idle watch off, and where nobody there does, another screen saver, which is called
/// on the user-interface thread only. Nothing here waits for an answer. When the process ends, however it ends, so does
/// its connection to the bus, and the desktop takes the hold back. Needs the application object.
class DesktopScreenSaver : public ScreenSaver
{
public:
    /// `fallback` outlives this object.
    DesktopScreenSaver(std::unique_ptr<IdleBus> bus, ScreenSaver& fallback);
    ~DesktopScreenSaver() override;
    DesktopScreenSaver(const DesktopScreenSaver&) = delete;
    DesktopScreenSaver& operator=(const DesktopScreenSaver&) = delete;

    void enable(bool on) override;
    void nudge() override;

private:
    ScreenSaver& fallback_;
    QObject receiver_;
    std::shared_ptr<Post> post_;
    IdleHold hold_;
};

} // namespace tandrel

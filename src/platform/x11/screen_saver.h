/// The screen saver of the X server.
#pragma once

#include "platform/services.h"

namespace tandrel
{

/// The server takes the hold back by itself when the process ends, however it ends. Needs the application object.
class X11ScreenSaver : public ScreenSaver
{
public:
    void enable(bool on) override;
    void nudge() override;

private:
    bool held_ = false;
};

} // namespace tandrel

/// What comes to the front by the user's will, though by way of another program.
#pragma once

#include "platform/services.h"

namespace tandrel
{

/// Asks the window manager to activate a window of ours, as from a taskbar: what programs ask for by themselves it may
/// hold back. Waits for nobody; without a window manager nothing happens.
void askForForeground(WindowHandle window);

} // namespace tandrel

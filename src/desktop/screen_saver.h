/// The screen saver while a video fills the screen.
#pragma once

namespace tandrel
{

/// False when full screen starts, true when it ends. What the system answers is not looked at.
void ScreenSaverSwitch(bool on);

} // namespace tandrel

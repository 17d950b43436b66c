/// The few things that a window manager is told beside what Qt tells it.
#pragma once

#include "toolkit/picture.h"

class QWidget;

namespace tandrel
{

/// True if a window manager runs on this display. Asked once a call, without caching: one may start later.
bool windowManagerPresent();

/// False where the server says that the left button is up: the events that tell of it may be on their way yet.
bool leftButtonMayBeHeld();

/// True where a program blends the windows of this screen, so that pixels which are half clear look it.
bool screenBlendsWindows();

/// True if the window manager says that the window is no icon, but stands on its screen.
bool standsOnScreen(QWidget& window);

/// Cuts the window to a region in device pixels. False where the display can't do that.
bool cutToDevicePixels(QWidget& window, const Region& region);

/// Asks the window manager to give the window one of its states, such as "_NET_WM_STATE_FULLSCREEN", or to take it
/// away. Nothing where none runs.
void announceState(QWidget& window, const char* state, bool on);

} // namespace tandrel

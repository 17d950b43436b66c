/// The few things that a window manager is told beside what Qt tells it.
#pragma once

class QWidget;

namespace tandrel
{

/// True if a window manager runs on this display. Asked once a call, without caching: one may start later.
bool windowManagerPresent();

/// True where a program blends the windows of this screen, so that pixels which are half clear look it.
bool screenBlendsWindows();

/// Asks the window manager to give the window one of its states, such as "_NET_WM_STATE_FULLSCREEN", or to take it
/// away. Nothing where none runs.
void announceState(QWidget& window, const char* state, bool on);

} // namespace tandrel

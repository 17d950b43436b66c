/// The few things that a window manager is told beside what Qt tells it.
#pragma once

class QWidget;

namespace tandrel
{

/// True if a window manager runs on this display. Asked once a call, without caching: one may start later.
bool windowManagerPresent();

/// Tells the window manager that the window covers its monitor, or no longer does. Nothing where none runs.
void announceFullScreen(QWidget& window, bool on);

} // namespace tandrel

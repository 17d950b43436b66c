/// A minimised window's way back where no window manager can iconify it.
#pragma once

#include <functional>

class QString;
class QWidget;

namespace tandrel
{

/// A small button at the lower left corner of the screen; pressing it runs `restore`. The caller owns it.
QWidget* makeWayBack(const QString& title, std::function<void()> restore);

} // namespace tandrel

/// The buttons of Qt's mouse events as those of the forms'.
#pragma once

#include "toolkit/control.h"

#include <Qt>

namespace tandrel
{

/// All of `buttons`, as a sum of `mouse::` values; a single button is one too.
inline int buttonMask(Qt::MouseButtons buttons)
{
    return (buttons & Qt::LeftButton ? mouse::kLeft : 0) | (buttons & Qt::RightButton ? mouse::kRight : 0) |
           (buttons & Qt::MiddleButton ? mouse::kMiddle : 0);
}

} // namespace tandrel

/// The buttons and keys of Qt's mouse events as those of the forms'.
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

/// The keys held with them, as a sum of `shift::` values.
inline int shiftMask(Qt::KeyboardModifiers keys)
{
    return (keys & Qt::ShiftModifier ? shift::kShift : 0) | (keys & Qt::ControlModifier ? shift::kControl : 0);
}

} // namespace tandrel

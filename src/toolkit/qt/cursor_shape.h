/// The shapes of the mouse pointer as Qt's.
#pragma once

#include "toolkit/screen.h"

#include <Qt>

namespace tandrel
{

inline Qt::CursorShape cursorShape(Integer shape)
{
    switch (static_cast<int>(shape)) {
    case pointer::kHourglass:
        return Qt::WaitCursor;
    case pointer::kSizeVertical:
        return Qt::SizeVerCursor;
    case pointer::kSizeDiagonal:
        return Qt::SizeFDiagCursor;
    case pointer::kSizeHorizontal:
        return Qt::SizeHorCursor;
    case pointer::kHand:
        return Qt::PointingHandCursor;
    default:
        return Qt::ArrowCursor;
    }
}

} // namespace tandrel

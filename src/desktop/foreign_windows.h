/// Windows of other programs, as the forms that take them in or look for them know them.
#pragma once

#include "platform/services.h"
#include "toolkit/types.h"

namespace tandrel
{

/// What such a form can ask.
class ForeignWindows
{
public:
    /// The process that a window belongs to, 0 where it can't be told.
    static Long ProcIDFromWnd(WindowHandle window);
    /// The first window of a process that stands in no other and belongs to none, or 0.
    static WindowHandle GetWinHandle(Long process);
};

} // namespace tandrel

#include "desktop/foreign_windows.h"

namespace tandrel
{

Long ForeignWindows::ProcIDFromWnd(WindowHandle window)
{
    return static_cast<std::int64_t>(services().desktop->processOf(window));
}

WindowHandle ForeignWindows::GetWinHandle(Long process)
{
    for (const WindowHandle window : services().desktop->topWindows())
        if (services().desktop->parentOf(window) == 0 && ProcIDFromWnd(window) == process)
            return window;
    return 0;
}

} // namespace tandrel

/// The mouse wheel over the windows that want it.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

/// From here on the turns of the wheel over this window go through `WheelWindowProc`. A handle that no window has is
/// left alone.
void WheelHookInstall(WindowHandle hWnd);
void WheelHookRemove(WindowHandle hWnd);
/// The window keeps the procedure that it had before the hook.
bool hasWheelHook(WindowHandle hWnd);

/// Decides where a turn goes that the window `hWnd` got.
///
/// For the window of a form: to the form's `MouseWheel`, if the pointer is over it. For the window of a control: to the
/// `MouseWheel` of its form, if the pointer is over the form and not over the control, unless the control's list is
/// down. False where the turn is used up; true where the window itself may act on it as well.
bool WheelWindowProc(WindowHandle hWnd, const WheelTurn& turn);

/// The loaded form with that window; null where there is none.
Form* FormOfHandle(WindowHandle hWnd);

/// True from the window's left and top up to, and with, the first pixels outside at its right and bottom.
bool IsPointOverWindow(WindowHandle hWnd, Long x, Long y);

} // namespace tandrel

/// Input methods of the X server: for the user-interface thread alone.
#pragma once

namespace tandrel
{

/// From here on other threads are told that there is no input method (XOpenIM of libX11). Called before any output is
/// opened.
void keepInputMethodsForThisThread();

} // namespace tandrel

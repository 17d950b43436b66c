/// The pointer over the menus of a disc.
#pragma once

#include "platform/output/picture_window.h"

namespace tandrel
{

/// libVLC listens to the pointer in the window that it was given, which takes no input from the user. These tell it as
/// the X server would. `place` is in pixels of the device, from the canvas' corner.
void tellPointerMoved(PictureWindow& picture, PixelPoint place);
/// Pressed and released.
void tellPointerPressed(PictureWindow& picture, PixelPoint place);

} // namespace tandrel

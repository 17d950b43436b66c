/// The one style sheet of all windows.
#pragma once

class QApplication;

namespace tandrel
{

/// Type, palette and style sheet, in pixels of the screen's present twips.
void applyStyle(QApplication& application);

/// Pixels of a screen with 96 dots to the inch as pixels of this one, as lengths in twips grow too.
int scaledPixels(double pixels);

} // namespace tandrel

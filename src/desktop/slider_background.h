/// What the console's slider is painted on.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

/// The one brush, of the colour `colour` (as of `rgb`); -1 keeps the one that is there.
void SliderBrushCreate(Long colour = -1);
void SliderBrushDelete();

/// From here on the console paints `slider`, and nothing else, with the brush, as long as there is one.
void SliderHookInstall(Form& console, const Control& slider);
void SliderHookRemove(Form& console);

} // namespace tandrel

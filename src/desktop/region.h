/// The outline of a window that is not a rectangle.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

/// All of the picture that is not of the transparent colour: for each row from the top the strips of other pixels, from
/// the left. With a `colour` below 1 the transparent colour is that of the pixel (0, 0). A picture of one colour, or
/// without pixels, gives an empty region.
Region CreaRegione(const Bitmap& picture, Long colour);

/// Cuts the form's window to the outline of its picture `mask`, as large as it stands on the form. Errors are ignored.
void applyMask(Form& form, const Image& mask);

} // namespace tandrel

/// The outline of a window that is not a rectangle.
#pragma once

#include "toolkit/picture.h"

namespace tandrel
{

/// All of the picture that is not of the transparent colour: for each row from the top the strips of other pixels, from
/// the left. With a `colour` below 1 the transparent colour is that of the pixel (0, 0). A picture of one colour, or
/// without pixels, gives an empty region.
Region CreaRegione(const Bitmap& picture, Long colour);

} // namespace tandrel

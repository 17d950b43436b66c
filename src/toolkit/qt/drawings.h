/// The drawings of the skin, as pictures of any size.
#pragma once

#include "toolkit/picture.h"

#include <QPixmap>

namespace tandrel
{

/// The drawing of that name, sharp at `size` and `pixelRatio`; kept once made. Clear where there is no such drawing.
QPixmap drawing(const QString& name, const QSize& size, double pixelRatio);

/// The same pixel by pixel, on black. Without `halves` pixels that are less than half covered are
/// black too.
Bitmap bitmapOf(const QImage& image, bool halves = true);

} // namespace tandrel

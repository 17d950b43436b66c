#include "toolkit/screen.h"

#include "toolkit/backend.h"

namespace tandrel
{

void Screen::setMetrics(Long twipsPerPixelX, Long twipsPerPixelY, const PixelRect& first)
{
    twipsPerPixelX_ = twipsPerPixelX;
    twipsPerPixelY_ = twipsPerPixelY;
    width_ = twipsPerPixelX * first.width();
    height_ = twipsPerPixelY * first.height();
    firstLeft_ = twipsPerPixelX * first.left;
    firstTop_ = twipsPerPixelY * first.top;
}

void Screen::setMousePointer(Integer shape)
{
    mousePointer_ = shape;
    backend().mousePointerChanged(shape);
}

Screen& screen()
{
    static Screen instance;
    return instance;
}

Long pixelsX(double twips) { return twips / screen().TwipsPerPixelX(); }

Long pixelsY(double twips) { return twips / screen().TwipsPerPixelY(); }

} // namespace tandrel

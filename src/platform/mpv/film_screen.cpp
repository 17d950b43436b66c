#include "platform/mpv/film_screen.h"

#include <algorithm>
#include <cmath>

namespace tandrel
{

PixelRect fitInto(const PixelRect& place, int width, int height)
{
    if (width <= 0 || height <= 0)
        return place;
    const double scale =
        std::min(static_cast<double>(place.width()) / width, static_cast<double>(place.height()) / height);
    const int fitWidth = std::max(1, static_cast<int>(std::lround(width * scale)));
    const int fitHeight = std::max(1, static_cast<int>(std::lround(height * scale)));
    const int left = place.left + (place.width() - fitWidth) / 2;
    const int top = place.top + (place.height() - fitHeight) / 2;
    return {left, top, left + fitWidth, top + fitHeight};
}

FilmScreen::FilmScreen(WindowSystem& system) : ground_(system, std::nullopt), picture_(system, ground_.frame()) {}

void FilmScreen::showIn(WindowHandle parent, const PixelRect& place)
{
    const std::lock_guard lock(mutex_);
    if (left_ || parent == 0)
        return;
    if (parent != parent_)
        ground_.moveInto(parent);
    parent_ = parent;
    place_ = place;
    put();
}

void FilmScreen::setSize(int width, int height)
{
    const std::lock_guard lock(mutex_);
    width_ = width;
    height_ = height;
    if (!left_ && parent_ != 0)
        put();
}

void FilmScreen::put()
{
    const bool known = width_ > 0 && height_ > 0;
    picture_.put(known ? fitInto({0, 0, place_.width(), place_.height()}, width_, height_) : PixelRect{}, width_);
    ground_.put(place_, 0);
}

void FilmScreen::leave()
{
    const std::lock_guard lock(mutex_);
    left_ = true;
    ground_.put({}, 0);
    ground_.moveInto(ground_.system().root());
}

} // namespace tandrel

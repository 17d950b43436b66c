#include "video/disc_input.h"

#include "toolkit/screen.h"

#include <algorithm>
#include <cmath>

namespace tandrel
{

namespace
{

struct MenuKeyRow {
    Key key;
    MenuKey menuKey;
};
constexpr MenuKeyRow kMenuKeys[] = {{Key::Left, MenuKey::Left},
                                    {Key::Right, MenuKey::Right},
                                    {Key::Up, MenuKey::Up},
                                    {Key::Down, MenuKey::Down},
                                    {Key::Enter, MenuKey::Enter}};

PixelPoint pixelsOf(const MouseEvent& event)
{
    return {static_cast<int>(std::lround(event.x / screen().TwipsPerPixelX())),
            static_cast<int>(std::lround(event.y / screen().TwipsPerPixelY()))};
}

} // namespace

bool sendMenuKey(DiscPlayer& disc, Key key)
{
    const auto* row = std::find_if(std::begin(kMenuKeys), std::end(kMenuKeys),
                                   [key](const MenuKeyRow& one) { return one.key == key; });
    if (row == std::end(kMenuKeys) || !disc.isInMenu())
        return false;
    disc.menuKey(row->menuKey);
    return true;
}

void pointInMenu(DiscPlayer& disc, const MouseEvent& event) { disc.pointerAt(pixelsOf(event)); }

void pressInMenu(DiscPlayer& disc, const MouseEvent& event)
{
    if (event.button == mouse::kLeft)
        disc.pointerPressed(pixelsOf(event));
}

} // namespace tandrel

#include "desktop/window_style.h"

namespace tandrel
{

bool clsStyle::border() const
{
    if (Client)
        Client->setTitleBar(Client->hasBorder());
    return false;
}

} // namespace tandrel

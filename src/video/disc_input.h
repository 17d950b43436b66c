/// What the user's keys and pointer do in the menus of a disc, the same in each control that plays one.
#pragma once

#include "platform/players.h"
#include "toolkit/form.h"

namespace tandrel
{

/// True where a menu is up and knows the key.
bool sendMenuKey(DiscPlayer& disc, Key key);
/// Places are twips of the control that the picture fills.
void pointInMenu(DiscPlayer& disc, const MouseEvent& event);
void pressInMenu(DiscPlayer& disc, const MouseEvent& event);

} // namespace tandrel

/// The menu that saves pictures of the videos.
#pragma once

#include "toolkit/form.h"
#include "toolkit/menu.h"

namespace tandrel
{

/// Never shown itself: it owns the menu.
class stillmenu : public Form
{
public:
    stillmenu();

    Menu popup{*this, "popup", "Picture"};
    Menu mnuStill{popup, "mnuStill", "&Picture of this video"};
    Menu mnuStills{popup, "mnuStills", "Pictures of &all videos, and a contact sheet"};

    void nameInLanguage();
};

} // namespace tandrel

/// The menu that chooses between the two arrangements of the videos.
#pragma once

#include "toolkit/form.h"
#include "toolkit/menu.h"

namespace tandrel
{

/// Never shown itself: it owns the menu.
class slidemenu : public Form
{
public:
    slidemenu();

    Menu popup{*this, "popup", "Slide"};
    Menu mnuSlideCenter{popup, "mnuSlideCenter", "Allign to &Center [PlayAll Mode]"};
    Menu mnuSlideLeft{popup, "mnuSlideLeft", "Allign to &Side [PlayList Mode]"};

protected:
    void onLoad() override;

private:
    void mnuSlideCenter_Click();
    void mnuSlideLeft_Click();
};

} // namespace tandrel

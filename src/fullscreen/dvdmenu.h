/// The menu over a disc that fills the screen on the video control.
#pragma once

#include "fullscreen/picture_menu.h"

namespace tandrel
{

class dvdmenu : public PictureMenu
{
public:
    dvdmenu();

    Menu mnupopup{*this, "mnupopup", "DVD"};
    Menu mnuFull{mnupopup, "mnuFull", "Fullscreen &Off"};
    Menu mnuNull0{mnupopup, "mnuNull0", Menu::kSeparator};
    Menu mnuNull1{mnupopup, "mnuNull1", Menu::kSeparator};
    Menu mnu43{mnupopup, "mnu43", "Default Format"};
    Menu mnu54{mnupopup, "mnu54", "Extended Format"};
    Menu mnu169{mnupopup, "mnu169", "Flat Format"};
    Menu mnu84{mnupopup, "mnu84", "UltraFlat Format"};
    Menu mnuNull2{mnupopup, "mnuNull2", Menu::kSeparator};
    Menu mnuDVD{mnupopup, "mnuDVD", "Menu DVD"};
    Menu mnuNull3{mnupopup, "mnuNull3", Menu::kSeparator};
    Menu mnuNull4{mnupopup, "mnuNull4", Menu::kSeparator};
    Menu mnuEsci{mnupopup, "mnuEsci", "&Close Menu"};

protected:
    void onLoad() override;
    Shape shape() const override;

private:
    static void showDiscMenu();
};

} // namespace tandrel

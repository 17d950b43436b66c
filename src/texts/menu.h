/// The menu of the console, and the one that shares the program with others.
#pragma once

#include "toolkit/form.h"
#include "toolkit/menu.h"

namespace tandrel
{

/// Never shown itself: it owns the menu that a right click on the console pops up.
class menu : public Form
{
public:
    menu();

    Menu mnupopup{*this, "mnupopup", "Menu"};
    Menu mnuHelp{mnupopup, "mnuHelp", "&Help"};
    Menu mnuSep1{mnupopup, "mnuSep1", Menu::kSeparator};
    Menu mnuAutor{mnupopup, "mnuAutor", "&Home Page"};
    Menu mnuSep2{mnupopup, "mnuSep2", Menu::kSeparator};
    Menu mnuEsci{mnupopup, "mnuEsci", "&Exit"};

private:
    void mnuAutor_Click();
};

/// Never shown itself: it owns the menu of the console's share button.
class share : public Form
{
public:
    share();

    Menu popup{*this, "popup", "Share"};
    Menu mnuFacebook{popup, "mnuFacebook", "On &Facebook ..."};
    Menu mnuMySpace{popup, "mnuMySpace", "On &MySpace ..."};
    Menu mnuTwitter{popup, "mnuTwitter", "On &Twitter ..."};
};

} // namespace tandrel

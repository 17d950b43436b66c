/// The menu of the console's open button.
#pragma once

#include "toolkit/form.h"
#include "toolkit/menu.h"

namespace tandrel
{

/// Never shown itself: it owns the menu.
class openmenu : public Form
{
public:
    openmenu();

    Menu popup{*this, "popup", "Open"};
    Menu mnuOpenMulti{popup, "mnuOpenMulti", "Open &Miltiple Video ..."};
    Menu mnuOpenSingle{popup, "mnuOpenSingle", "Open &Single/MKV Video ..."};
    Menu mnuNull1{popup, "mnuNull1", Menu::kSeparator};
    Menu mnuOpenLast{popup, "mnuOpenLast", "Open &Recent Files ..."};
    Menu mnuNull2{popup, "mnuNull2", Menu::kSeparator};
    /// Never seen: the entry for one video takes these files too.
    Menu mnuMKV{popup, "mnuMKV", "Open MKV Video ..."};
    Menu mnuDVD{popup, "mnuDVD", "Open DVD Movie ..."};

    /// The captions in the language in use.
    void nameInLanguage();
};

} // namespace tandrel

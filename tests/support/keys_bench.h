/// The keys of the console, and what they send.
#pragma once

#include "panel_bench.h"

#include "console/slidemenu.h"
#include "console/stillmenu.h"
#include "persist/openmenu.h"
#include "texts/menu.h"

namespace tandrel::test
{

class KeysBench : public PanelBench
{
protected:
    bool press(const Text& key, bool repeats = false) { return console().Shortcut({key, 0, repeats}); }
    std::vector<std::string> sentBy(const Text& key)
    {
        forgetCommands();
        EXPECT_TRUE(press(key)) << key;
        return commands();
    }
    std::vector<Menu*> entries()
    {
        return {
            &slidemenu().mnuSlideCenter, &slidemenu().mnuSlideLeft, &openmenu().mnuOpenMulti, &openmenu().mnuOpenSingle,
            &openmenu().mnuOpenLast,     &openmenu().mnuDVD,        &stillmenu().mnuStill,    &stillmenu().mnuStills,
            &share().mnuMySpace,         &menu().mnuAutor};
    }
};

} // namespace tandrel::test

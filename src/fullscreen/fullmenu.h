/// The menu over a file video that fills the screen.
#pragma once

#include "fullscreen/picture_menu.h"

#include <memory>
#include <vector>

namespace tandrel
{

class fullmenu : public PictureMenu
{
public:
    fullmenu();

    Menu mnupopup{*this, "mnupopup", "Full"};
    Menu mnuFull{mnupopup, "mnuFull", "Fullscreen &Off"};
    Menu mnuNull0{mnupopup, "mnuNull0", Menu::kSeparator};
    Menu mnuAudioSet{mnupopup, "mnuAudioSet", "&Audio Settings"};
    Menu mnuVideoSet{mnupopup, "mnuVideoSet", "&Video Settings"};
    Menu mnuNull1{mnupopup, "mnuNull1", Menu::kSeparator};
    Menu mnuPlay{mnupopup, "mnuPlay", "&Play"};
    Menu mnuPause{mnupopup, "mnuPause", "Pa&use"};
    Menu mnuNull13{mnupopup, "mnuNull13", Menu::kSeparator};
    /// Neither is ever seen: the panel's buttons jump.
    Menu mnuFwd{mnupopup, "mnuFwd", "&Fwd >>"};
    Menu mnuRwd{mnupopup, "mnuRwd", "&Rwd <<"};
    Menu mnuNull12{mnupopup, "mnuNull12", Menu::kSeparator};
    Menu mnu43{mnupopup, "mnu43", "Default Format"};
    Menu mnu54{mnupopup, "mnu54", "Extended Format"};
    Menu mnu169{mnupopup, "mnu169", "Flat Format"};
    Menu mnu84{mnupopup, "mnu84", "UltraFlat Format"};
    Menu mnuNull2{mnupopup, "mnuNull2", Menu::kSeparator};
    Menu mnuPic{mnupopup, "mnuPic", "P&icture 'n Picture"};
    /// Index 0 is the head line, 1 to `MaxVideos` are the videos.
    std::vector<std::unique_ptr<Menu>> mnuVideo;
    Menu mnuNull3{mnupopup, "mnuNull3", Menu::kSeparator};
    Menu mnuNull4{mnupopup, "mnuNull4", Menu::kSeparator};
    Menu mnuEsci{mnupopup, "mnuEsci", "&Close Menu"};

protected:
    void onLoad() override;
    Shape shape() const override;

private:
    void makeVideoEntries();
    void listVideos();
    Menu* entryFor(std::size_t slot);
    void bringForward(const Menu& entry);
};

} // namespace tandrel

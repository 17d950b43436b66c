// From one video to the next in the order of the slots, by a command.

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/screen_saver.h"
#include "media/shared_state.h"
#include "video/slots.h"
#include "video/video_window.h"

#include <algorithm>

namespace tandrel
{

frmChild* frmMedia::neighbourOfSelected(int direction) const
{
    std::vector<frmChild*> all;
    for (const auto& slot : VideoWindows)
        if (slot && slot->isLive() && (!slot->hasFailed() || slot->plays(CurrentAlias)))
            all.push_back(slot.get());
    const auto selected =
        std::find_if(all.begin(), all.end(), [](const frmChild* window) { return window->plays(CurrentAlias); });
    // Put away as a whole they come back as a whole.
    if (selected == all.end() || all.size() < 2 || ResizePending)
        return nullptr;
    const auto count = all.size();
    const auto at = static_cast<std::size_t>(selected - all.begin());
    return all[direction < 0 ? (at + count - 1) % count : (at + 1) % count];
}

void frmMedia::selectNeighbour(int direction)
{
    frmChild* next = neighbourOfSelected(direction);
    if (!next)
        return;
    const frmChild* selected = slotPlaying(CurrentAlias);
    const bool full = FullScreenOn && selected->Full;
    if (full) {
        FullScreenOn = false;
        ScreenSaverSwitch(true);
        followEndOfFullScreen();
    }
    // Its activation makes it the selected one.
    next->SetFocus();
    if (SlideMode == "1")
        SlideShow();
    if (full) {
        FullMedia = CurrentAlias;
        fillWith(*next);
    }
}

} // namespace tandrel

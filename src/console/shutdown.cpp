// The end: by the exit button, or by a close of the console from outside.

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/screen_saver.h"
#include "desktop/slider_background.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "persist/data_files.h"
#include "persist/settings.h"
#include "texts/frm_wait.h"
#include "toolkit/program.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/slots.h"

namespace tandrel
{

void frmMedia::exitProgram()
{
    ClosingDown = true;
    forEachPlayable([](frmChild& window) { MediaPauseAlias(window.MediaFile); });
    ScreenSaverSwitch(true);
    MediaCloseAll();
    stopOtherMedia();
    savePlace();
    giveUpPresence();
    endProgram();
}

void frmMedia::savePlace()
{
    saveSetting(settings::kTop, text(top() - FullTop));
    saveSetting(settings::kLeft, text(left() - FullLeft));
}

void frmMedia::giveUpPresence()
{
    // In a turn of its own, like a start that looks for an owner: nobody leaves a file to a process that has gone.
    services().instances->exclusively([this] {
        services().instances->leave();
        if (presence::exists())
            presence::removeIfOwn(hWnd());
        if (handover::exists())
            handover::remove();
    });
}

void frmMedia::onQueryUnload()
{
    ClosingDown = true;
    FastForward = false;
    FastRewind = false;
    Unload<class frmPrev>();
    endOtherMedia();
    Unload<class frmWait>();
    Unload<class frmPanel>();
    Unload<class frmStart>();
    Unload<class frmToolTip>();
    Unload<class frmUpdate>();
    Unload<class fullmenu>();
    Unload<class slidemenu>();
    Unload<class openmenu>();
    Unload<class dvdmenu>();
    Unload<class menu>();
    const SlotTable slots = VideoWindows;
    for (const auto& slot : slots) {
        if (!slot)
            continue;
        slot->Hide();
        if (slot->isLive() && !slot->hasFailed())
            MediaClose(slot->MediaFile);
        unload(*slot);
    }
    ScreenSaverSwitch(true);
    savePlace();
    giveUpPresence();
}

void frmMedia::onUnload()
{
    releaseHooks();
    endProgram();
}

void frmMedia::releaseHooks()
{
    SliderBrushDelete();
    SliderHookRemove(*this);
    services().hotKeys->releaseAll();
    services().hotKeys->pressed = nullptr;
    services().monitors->changed = nullptr;
}

void frmMedia::onResize()
{
    if (ResizePending)
        restoreVideos();
}

void frmMedia::restoreVideos()
{
    trap([this] {
        frmWait().Show();
        restoreOtherMedia();
        const Long whole = liveCount();
        forEachLive([&, done = 0](frmChild& window) mutable {
            if (!window.hasFailed())
                MediaResume(window.MediaFile, window.Paused, Integer(window.Volume));
            window.Show();
            frmWait().showProgress(++done, whole);
            frmWait().Refresh();
            frmWait().SetFocus();
        });
    });
    ResizePending = false;
    Unload<class frmWait>();
}

} // namespace tandrel

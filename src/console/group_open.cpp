// Several videos at once: a window for each, all placed by the present mode and started.

#include "console/frm_media.h"
#include "console/holders.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "texts/frm_wait.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/slots.h"

#include <algorithm>

namespace tandrel
{

void frmMedia::takeGroup(const std::vector<Text>& paths)
{
    List1.Clear();
    for (const Text& path : paths) {
        const auto& open = List2.entries();
        const bool known =
            std::any_of(open.begin(), open.end(), [&](const Text& entry) { return sameMedium(entry, path); });
        if (known || List2.ListCount() >= MaxVideos)
            continue;
        List1.AddItem(path);
        List2.AddItem(path);
    }
}

void frmMedia::openGroup()
{
    if (List1.ListCount() == 0)
        return;
    screen().MousePointer = pointer::kHourglass;
    WindowDragged = false;
    dropFailedSlots();
    SizePercent = 100;
    lblSize.Caption = "100 %";
    frmWait().Show();
    if (FastForward || FastRewind)
        MediaPause();
    Refresh();
    endOtherMedia();
    holdTimers(true);
    trap([this] {
        openChosen();
        if (SlideMode == "0")
            arrangePlayAll();
        else if (SlideMode == "1")
            arrangePlayList();
    });
    holdTimers(false);
    Unload<class frmWait>();
    screen().MousePointer = pointer::kDefault;
    SetFocus();
}

void frmMedia::openChosen()
{
    Text lead;
    int done = 0;
    for (const Text& path : List1.entries()) {
        ++done;
        if (path.empty())
            continue;
        if (openPaused(path)) {
            lead = CurrentAlias;
            if (SlideMode == "1")
                mciSend("setaudio " + CurrentAlias + " Volume to 0");
        }
        frmWait().showProgress(done, List1.ListCount());
        frmWait().Refresh();
        frmWait().SetFocus();
    }
    CurrentAlias = lead;
}

void frmMedia::playChosen(frmChild& window)
{
    if (!isChosen(window))
        return;
    mciSend("Play " + trim(window.MediaFile) + " ");
    lblTitleBar.Caption = titleFor(fileNameOf(window.path()));
}

void frmMedia::arrangePlayAll()
{
    sweepFailedSlots();
    const Long count = liveCount();
    if (count <= 0 || count > MaxVideos)
        return;
    Long place = 0;
    forEachLive([&](frmChild& window) {
        MediaGetSizeAlias(window.MediaFile);
        if (count == 1)
            placeSingle(window, 0);
        else
            placeGrid(window, count, place);
        window.Refresh();
        playChosen(window);
        window.Show();
        keepWaitInFront();
        place += 1;
    });
}

void frmMedia::arrangePlayList()
{
    const Text lead = CurrentAlias;
    sweepFailedSlots();
    const Long count = liveCount();
    if (count <= 0 || count > MaxVideos)
        return;
    Long tile = 0;
    forEachLive([&](frmChild& window) {
        const bool isLead = trim(window.MediaFile) == lead;
        MediaGetSizeAlias(window.MediaFile);
        if (count == 1)
            placeSingle(window, 25);
        else
            placeBeside(window, count, tile, isLead);
        if (!isLead)
            tile += 1;
        window.Refresh();
        window.Show();
        playChosen(window);
        keepWaitInFront();
    });
    CurrentAlias = lead;
    forEachLive([&](frmChild& window) {
        if (trim(window.MediaFile) != lead)
            MediaSeekQuarter(window.MediaFile);
        window.Paused = 1;
    });
    if (frmChild* window = slotPlaying(lead)) {
        MediaResume(lead, 0, VolumeSlider.Value());
        window->Paused = 0;
        window->SetFocus();
        showTitleOf(fileNameOf(window->path()));
    }
    showTip(count);
}

} // namespace tandrel

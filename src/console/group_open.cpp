// Several videos at once: a window for each, all placed by the present mode and started.

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "console/open_command.h"
#include "console/selection.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "persist/recent_files.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_wait.h"
#include "texts/localised.h"
#include "toolkit/screen.h"
#include "video/slots.h"

#include <algorithm>

namespace tandrel
{

void frmMedia::cmdOpen()
{
    const OpenCommand command(*this);
    if (!prepareGroup())
        return;
    Text chosen;
    GetFiles("Open Multiple Video...", chosen);
    const OpenAhead ahead(List1.entries());
    Unload<class frmToolTip>();
    if (!chosen.empty() && hasResult(chosen))
        Unload<class frmPrev>();
    if (List1.ListCount() == 0 || tellFirstTip())
        openGroup();
}

void frmMedia::openPaths(const std::vector<Text>& paths, bool keepsRecent)
{
    const OpenCommand command(*this);
    if (!prepareGroup())
        return;
    takeGroup(paths);
    const OpenAhead ahead(List1.entries());
    openGroup();
    if (keepsRecent)
        recent::update(List1.entries());
}

void frmMedia::openDropped(const std::vector<Text>& paths)
{
    if (isBusy() || ClosingDown)
        return;
    if (paths.size() == 1 && isDiscPath(paths.front()))
        return playDisc(paths.front());
    std::vector<Text> files;
    std::copy_if(paths.begin(), paths.end(), std::back_inserter(files),
                 [](const Text& path) { return !services().files->dir(path).empty(); });
    if (files.empty()) {
        backend().messageBox(localised("message.cannotPlay"), BoxStyle::Critical, AppTitle);
        return;
    }
    openPaths(files, true);
}

bool frmMedia::prepareGroup()
{
    WindowDragged = false;
    dropFailedSlots();
    SizePercent = 100;
    lblSize.Caption = "100 %";
    if (List2.ListCount() <= MaxVideos - 1)
        return true;
    tell("\n" + localised("message.tooMany"));
    return false;
}

void frmMedia::takeGroup(const std::vector<Text>& paths)
{
    List1.Clear();
    for (const Text& path : paths) {
        const auto& open = List2.entries();
        const bool known = std::find(open.begin(), open.end(), path) != open.end() || slotPlaying(quoted(path));
        if (known || List2.ListCount() >= MaxVideos)
            continue;
        List1.AddItem(path);
        List2.AddItem(path);
    }
}

void frmMedia::openGroup()
{
    if (List1.ListCount() == 0) {
        screen().MousePointer = pointer::kDefault;
        SetFocus();
        return;
    }
    runBatch(List1.ListCount(), [this] {
        stopJump();
        Refresh();
        endOtherMedia();
        openChosen();
        if (SlideMode == "0")
            arrangePlayAll();
        else if (SlideMode == "1")
            arrangePlayList();
    });
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
    const Text lead = CurrentAlias;
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
    // Each window that came up has made itself the selected one.
    CurrentAlias = lead;
}

void frmMedia::arrangePlayList()
{
    const Text lead = CurrentAlias;
    sweepFailedSlots();
    const Long count = liveCount();
    if (count <= 0 || count > MaxVideos)
        return;
    // Where nothing has opened, the first slot is the lead.
    const frmChild* found = slotPlaying(lead);
    const frmChild* large = found != nullptr ? found : VideoWindows.front().get();
    Long tile = 0;
    forEachLive([&](frmChild& window) {
        const bool isLead = &window == large;
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
        window.Show();
        refreshWait();
    });
    CurrentAlias = lead;
    forEachLive([&](frmChild& window) {
        if (&window != large)
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

// What every activation of the console does: it takes the files that later starts have handed over.

#include "toolkit/activation.h"
#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "console/open_command.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "persist/data_files.h"
#include "texts/frm_wait.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/frm_mkv.h"
#include "video/slots.h"

#include <algorithm>

namespace tandrel
{

void frmMedia::onActivate()
{
    const bool heldByCommand = screen().MousePointer() == pointer::kHourglass;
    TrackHold = true;
    handoverUnreadable_ = false;
    bool settled = false;
    while (!settled) {
        if (handoverIsDue()) {
            takingHandover_ = true;
            const bool taken = trap([this] { takeHandover(); });
            takingHandover_ = false;
            holdTimers(false);
            Unload<class frmWait>();
            if (!taken) {
                screen().MousePointer = heldByCommand ? pointer::kHourglass : pointer::kDefault;
                return;
            }
        }
        settled = markOwner();
    }
    InvertSlider.SetFocus();
    if (!heldByCommand)
        screen().MousePointer = pointer::kDefault;
    keepSpareWindows();
}

bool frmMedia::markOwner()
{
    bool settled = true;
    // Starts look for the mark and hand over in one turn of theirs, so that none hands over to a process that has taken
    // its list for the last time.
    services().instances->exclusively([&] {
        settled = !handoverIsDue();
        if (settled && !presence::exists())
            presence::write(hWnd());
    });
    return settled;
}

bool frmMedia::handoverIsDue() const
{
    return opening_ == 0 && !takingHandover_ && handover::exists() && !handoverUnreadable_ && !handoverStuck_;
}

bool frmMedia::mayBeginCommand() const
{
    return isLoaded() && !isEnding() && !ClosingDown && opening_ == 0 && !takingHandover_ && !isBusy();
}

bool frmMedia::takeWhatWasLeft()
{
    if (!isLoaded() || isEnding() || ClosingDown)
        return true;
    if (!mayBeginCommand())
        return false;
    if (windowState() == static_cast<int>(tandrel::WindowState::Minimised))
        WindowState = 0;
    ZOrder();
    SetFocus();
    // What hindered it the last time may be over: whoever calls may have written the list anew.
    handoverUnreadable_ = handoverStuck_ = false;
    // One that was the active form all along has not been activated by that.
    if (handoverIsDue())
        run([this] { onActivate(); });
    return true;
}

void frmMedia::takeNoHandover(bool on)
{
    opening_ += on ? 1 : -1;
    // The activation that the command ended with has left them where they were.
    if (!on && isLoaded() && !isEnding() && activeForm() == this && handoverIsDue())
        run([this] { onActivate(); });
}

void frmMedia::takeHandover()
{
    const auto lines = handover::lines();
    if (!lines) {
        handoverUnreadable_ = true;
        return;
    }
    if (FastForward || FastRewind)
        MediaPause();
    holdTimers(true);
    List1.Clear();
    const std::vector<Text> paths = newPaths(*lines);
    if (!paths.empty())
        endOtherMedia();
    openHandedOver(paths);
    services().instances->exclusively([&] { handoverStuck_ = !handover::removeFirst(lines->size()); });
    startLeadOfHandover();
    arrangeHandover();
    // It came before the others were arranged, whose windows stand in front of it now.
    if (Loaded<class frmMKV>() && CurrentAlias == quoted(frmMKV().MediaFile))
        frmMKV().SetFocus();
}

void frmMedia::openHandedOver(const std::vector<Text>& paths)
{
    const bool several = paths.size() > 1;
    const Long whole = static_cast<std::int64_t>(paths.size());
    const bool onlyHd = std::count_if(paths.begin(), paths.end(), &isHdPath) == 1;
    int done = 0;
    if (several)
        frmWait().Show();
    const OpenAhead ahead(paths);
    // A file that can't be played leads nothing.
    Text lead = CurrentAlias;
    for (const Text& path : paths) {
        List1.AddItem(path);
        List2.AddItem(fileNameOf(path));
        // There is one window for HD films: several of them play like any other file.
        if (onlyHd && isHdPath(path)) {
            openHdFile(path);
            lead = quoted(path);
        } else if (openPaused(path)) {
            lead = CurrentAlias;
        }
        if (several) {
            frmWait().showProgress(++done, whole);
            frmWait().Refresh();
            frmWait().SetFocus();
        }
    }
    CurrentAlias = lead;
}

std::vector<Text> frmMedia::newPaths(const std::vector<Text>& lines) const
{
    std::vector<Text> known = List2.entries();
    std::vector<Text> paths;
    for (const Text& line : lines) {
        const Text path = withoutQuotes(line);
        const auto same = [&](const Text& entry) { return sameMedium(entry, path); };
        if (characterCount(path) <= 1 || Long(known.size()) >= MaxVideos ||
            std::any_of(known.begin(), known.end(), same))
            continue;
        known.push_back(fileNameOf(path));
        paths.push_back(path);
    }
    return paths;
}

void frmMedia::startLeadOfHandover()
{
    if (SlideMode == "0")
        return;
    sweepFailedSlots();
    forEachLive([](frmChild& window) {
        if (trim(window.MediaFile) == CurrentAlias)
            return;
        MediaSeekQuarter(window.MediaFile);
        window.Paused = 1;
    });
    if (frmChild* lead = slotPlaying(CurrentAlias)) {
        MediaResume(CurrentAlias, 0, VolumeSlider.Value());
        lead->Paused = 0;
    }
}

void frmMedia::arrangeHandover()
{
    const Text lead = CurrentAlias;
    const bool playAll = SlideMode == "0";
    // A window that failed widens the grid, as in the arrangement of the open windows, and takes no cell.
    const Long live = liveCount();
    sweepFailedSlots();
    const Long count = playAll ? std::min<Long>(live, MaxVideos) : liveCount();
    if (count <= 0 || count > MaxVideos)
        return;
    Long place = 0;
    forEachLive([&](frmChild& window) {
        const bool isLead = trim(window.MediaFile) == lead;
        MediaGetSizeAlias(window.MediaFile);
        if (playAll)
            placeGrid(window, count, place);
        else
            placeBeside(window, count, place, isLead);
        if (playAll || !isLead)
            place += 1;
        showPlaced(window, false);
    });
    CurrentAlias = lead;
    if (playAll)
        forEachLive([](frmChild& window) { mciSend("Play " + window.MediaFile + " from 0"); });
    if (frmChild* window = slotPlaying(lead)) {
        window->SetFocus();
        showTitleOf(fileNameOf(window->path()));
    }
    if (!playAll)
        showTip(count);
}

} // namespace tandrel

// The two arrangements of all videos: the grid of PlayAll Mode, and PlayList Mode with its large lead.

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/placement.h"
#include "desktop/monitors.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_wait.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/slots.h"

#include <algorithm>

namespace tandrel
{

namespace
{

constexpr int kStaggerMs = 205;
constexpr int kTipInset = 600;
constexpr int kNativeMargin = 25;

MonitorPixels monitorPixels()
{
    const class frmMedia& console = frmMedia();
    return {divide(console.FullWidth, screen().TwipsPerPixelX()),
            divide(console.FullHeight, screen().TwipsPerPixelY())};
}

TwipsRect onMonitor(const PixelRect& place)
{
    const class frmMedia& console = frmMedia();
    const Long x = screen().TwipsPerPixelX();
    const Long y = screen().TwipsPerPixelY();
    return {console.FullLeft + x * place.left, console.FullTop + y * place.top, x * place.width(), y * place.height()};
}

// One side after the other: a window that is on the screen fits its picture after each.
void putIntoCell(frmChild& window, const PixelRect& cell)
{
    const TwipsRect place = onMonitor(cell);
    window.Top = place.top;
    window.Left = place.left;
    window.Width = place.width;
    window.Height = place.height;
}

} // namespace

void frmMedia::refreshWait()
{
    if (Loaded<class frmWait>() && frmWait().Visible())
        frmWait().Refresh();
}

void frmMedia::keepWaitInFront()
{
    refreshWait();
    if (Loaded<class frmWait>() && frmWait().Visible())
        frmWait().SetFocus();
}

bool frmMedia::isChosen(const frmChild& window) const
{
    const Text alias = trim(window.MediaFile);
    const auto& chosen = List1.entries();
    return std::any_of(chosen.begin(), chosen.end(), [&](const Text& entry) { return quoted(entry) == alias; });
}

bool frmMedia::beginArrangement(Long& count, frmChild** current)
{
    if (List2.ListCount() < 2)
        return false;
    screen().MousePointer = pointer::kHourglass;
    forEachLive([&](frmChild& window) {
        count += 1;
        if (window.hasFailed() || !current)
            return;
        if (trim(window.MediaFile) == CurrentAlias)
            *current = &window;
        MediaPauseAlias(window.MediaFile);
        window.Paused = 1;
    });
    sweepFailedSlots();
    if (count > 0 && count < MaxVideos + 1)
        return true;
    screen().MousePointer = pointer::kDefault;
    return false;
}

void frmMedia::placeAlone(frmChild& window)
{
    window.Move({FullLeft, FullTop, (NativeWidth + kNativeMargin) * screen().TwipsPerPixelX(),
                 (NativeHeight + kNativeMargin) * screen().TwipsPerPixelY()});
}

void frmMedia::placeGrid(frmChild& window, Long count, Long cell, CellOrder order)
{
    if (count == 1)
        placeAlone(window);
    else
        putIntoCell(window, gridCell(count, cell, monitorPixels(), order));
}

void frmMedia::placeBeside(frmChild& window, Long count, Long tile, bool lead)
{
    if (count == 1)
        placeAlone(window);
    else if (lead)
        window.Move(onMonitor(leadPlace(monitorPixels())));
    else
        putIntoCell(window, tilePlace(count, tile, monitorPixels()));
}

void frmMedia::showPlaced(frmChild& window, bool play)
{
    window.Refresh();
    window.Show();
    if (isChosen(window)) {
        if (play)
            mciSend("Play " + trim(window.MediaFile) + " ");
        showTitleOf(withoutQuotes(CurrentAlias));
    }
    keepWaitInFront();
}

void frmMedia::Resize(bool NoPlay)
{
    Long count = 0;
    const Text kept = CurrentAlias;
    if (!beginArrangement(count, nullptr))
        return;
    Long cell = 0;
    forEachLive([&](frmChild& window) {
        ignoringErrors([&] { MediaGetSizeAlias(trim(window.MediaFile)); });
        ignoringErrors([&] { placeGrid(window, count, cell); });
        window.Volume = VolumeSlider.Value;
        ignoringErrors([&] { showPlaced(window, !NoPlay); });
        cell += 1;
    });
    restartAll();
    focusKept(kept);
    if (SlideMode == "0" && NoPlay)
        staggerAll();
    Unload<class frmToolTip>();
    Unload<class frmWait>();
    ZOrder();
    screen().MousePointer = pointer::kDefault;
}

void frmMedia::restartAll()
{
    forEachSlot([this](frmChild& window) {
        ignoringErrors([&] {
            if (SlideMode == "1")
                MediaRestart(window.MediaFile, 0, VolumeSlider.Value());
            else
                MediaResume(window.MediaFile, 0, VolumeSlider.Value());
        });
        window.Paused = 0;
    });
}

void frmMedia::focusKept(const Text& kept)
{
    const Text path = withoutQuotes(kept);
    const auto& open = List2.entries();
    if (std::none_of(open.begin(), open.end(), [&](const Text& entry) { return sameMedium(entry, path); }))
        return;
    CurrentAlias = kept;
    showTitleOf(path);
    if (frmChild* window = slotPlaying(kept))
        window->SetFocus();
}

void frmMedia::staggerAll()
{
    for (std::size_t i = 0; i < VideoWindows.size(); ++i)
        if (VideoWindows[i] && VideoWindows[i]->isLive())
            mciSend("Play " + VideoWindows[i]->MediaFile + " from " + text(Long(i) * kStaggerMs));
}

void frmMedia::SlideShow()
{
    Long count = 0;
    frmChild* current = nullptr;
    const Text kept = CurrentAlias;
    if (!beginArrangement(count, &current))
        return;
    WindowDragged = false;
    Long tile = 0;
    forEachLive([&](frmChild& window) {
        const bool lead = &window == current;
        ignoringErrors([&] { MediaGetSizeAlias(trim(window.MediaFile)); });
        ignoringErrors([&] { placeBeside(window, count, tile, lead); });
        if (!lead)
            tile += 1;
        ignoringErrors([&] { showPlaced(window, false); });
    });
    // Each window that came up has made itself the selected one.
    CurrentAlias = kept;
    if (frmChild* window = slotPlaying(CurrentAlias)) {
        ignoringErrors([&] { MediaSeekPlay(0, 0); });
        MediaSetVolume(VolumeSlider.Value);
        window->Paused = 0;
        window->SetFocus();
        showTitleOf(window->path());
    }
    showTip(count);
    Unload<class frmWait>();
    ZOrder();
    screen().MousePointer = pointer::kDefault;
}

void frmMedia::showTip(Long count)
{
    if (TipsOn == "0" || count <= 1)
        return;
    class frmToolTip& tip = frmToolTip();
    const Long leadWidth = screen().TwipsPerPixelX() * leadPlace(monitorPixels()).width();
    tip.Move({FullLeft + leadWidth - tip.width() + kTipInset, FullTop + kTipInset, tip.width(), tip.height()});
    monitors().bringWithinReach(tip);
    tip.Show();
}

} // namespace tandrel

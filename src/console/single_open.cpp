// The openers that replace everything that is open.

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "console/open_command.h"
#include "console/selection.h"
#include "desktop/system_facts.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_wait.h"
#include "texts/localised.h"
#include "toolkit/program.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/slots.h"

#include <algorithm>

namespace tandrel
{

namespace
{
bool isPlayable(const std::shared_ptr<frmChild>& slot) { return slot && slot->isLive() && !slot->hasFailed(); }
} // namespace

OpenCommand::OpenCommand(class frmMedia& console) : console_(console)
{
    console_.takeNoHandover(true);
    screen().MousePointer = pointer::kHourglass;
}

OpenCommand::~OpenCommand()
{
    console_.PresetSelection = false;
    console_.SelectionText.clear();
    screen().MousePointer = pointer::kDefault;
    console_.takeNoHandover(false);
}

OpenAhead::OpenAhead(const std::vector<Text>& paths)
{
    services().mci->prepare(paths);
    services().mci->whileWaiting = [] {
        if (Loaded<class frmWait>() && frmWait().Visible())
            frmWait().pulse();
    };
}

OpenAhead::~OpenAhead()
{
    services().mci->whileWaiting = nullptr;
    services().mci->prepare({});
}

void frmMedia::OpenSingleVideo()
{
    if (isBusy())
        return;
    const OpenCommand command(*this);
    Text chosen;
    GetFiles1("Open File Video...", chosen);
    Unload<class frmToolTip>();
    if (hasResult(chosen))
        Unload<class frmPrev>();
    if (!hasNewFile(chosen))
        return;
    const OpenAhead ahead(List1.entries());
    endOtherMedia();
    if (!tellFirstTip())
        return;
    stopJump();
    const bool isSingle = List1.ListCount() == 1;
    const bool isHd = isSingle && !isOlderSystem(WindowsVersion) && isHdPath(List1.List(0));
    const bool isDisc = isSingle && isDiscPath(List1.List(0));
    runBatch(List1.ListCount(), [&] {
        closeAllVideos();
        if (isHd)
            openHdFile(List1.List(0));
        else if (isDisc)
            openChosenDisc();
        else
            openReplacing();
    });
    screen().MousePointer = pointer::kDefault;
    if (!isHd)
        SetFocus();
}

void frmMedia::OpenSingleVideoMKV()
{
    if (isBusy())
        return;
    const OpenCommand command(*this);
    Text chosen;
    GetFiles2("Open MKV Video...", chosen);
    if (!hasNewFile(chosen))
        return;
    const OpenAhead ahead(List1.entries());
    Unload<class frmToolTip>();
    if (hasResult(chosen))
        Unload<class frmPrev>();
    stopJump();
    runBatch(List1.ListCount(), [this] {
        closeAllVideos();
        openReplacing();
    });
    screen().MousePointer = pointer::kDefault;
    SetFocus();
}

void frmMedia::OpenSingleVideoDVD()
{
    if (isBusy())
        return;
    const OpenCommand command(*this);
    Unload<class frmToolTip>();
    Unload<class frmPrev>();
    endHd();
    if (!tellFirstTip())
        return;
    runBatch(0, [this] {
        closeAllVideos(false);
        openDvd();
    });
    SetFocus();
}

bool frmMedia::isBusy() const
{
    return screen().MousePointer() == pointer::kHourglass || mousePointer() == pointer::kHourglass;
}

void frmMedia::stopJump()
{
    if (FastForward || FastRewind)
        MediaPause();
}

bool frmMedia::hasNewFile(const Text& chosen)
{
    if (chosen.empty())
        return false;
    if (List1.ListCount() > 0)
        return true;
    // The file is open already, so that nothing is closed for it.
    for (const Text& path : parseSelection(chosen).elements)
        if (frmChild* window = slotPlaying(quoted(path))) {
            window->SetFocus();
            break;
        }
    return false;
}

bool frmMedia::tellFirstTip()
{
    if (!FirstOpenTip)
        return true;
    screen().MousePointer = pointer::kDefault;
    tell(localised("message.tipFullScreen"));
    FirstOpenTip = false;
    screen().MousePointer = pointer::kHourglass;
    return !programEnded() && !isEnding();
}

void frmMedia::runBatch(Long files, const std::function<void()>& work)
{
    frmWait().Show();
    frmWait().showProgress(0, files);
    holdTimers(true);
    if (!trap(work))
        forgetUnopened();
    holdTimers(false);
    Unload<class frmWait>();
}

void frmMedia::forgetUnopened()
{
    for (const Text& path : List1.entries())
        if (!slotPlaying(quoted(path)))
            dropOpenEntry(path);
}

void frmMedia::closeAllVideos(bool forNewFile)
{
    forEachLive([&](frmChild& window) {
        window.Visible = false;
        // The list is cut below; the window's own entry may be the one of the new file.
        window.Listed = !forNewFile;
        MediaClose(window.MediaFile);
        unload(window);
        keepWaitInFront();
    });
    // Those whose open had failed are hidden, and nothing else would end them.
    dropFailedSlots();
    // The last entry is the new file.
    while (List2.ListCount() > 1)
        List2.RemoveItem(List2.ListCount() - 2);
    NextSlot = 0;
    CurrentAlias.clear();
    Refresh();
}

void frmMedia::openReplacing()
{
    const Long whole = List1.ListCount();
    int done = 0;
    for (const Text& path : List1.entries()) {
        if (trim(path).empty())
            continue;
        endOtherMedia();
        openRunning(path);
        frmWait().showProgress(++done, whole);
        keepWaitInFront();
    }
    const Long count = liveCount();
    if (count > 0 && std::none_of(VideoWindows.begin(), VideoWindows.end(), isPlayable))
        sayNothingPlays();
    sweepFailedSlots();
    if (count > 0 && count < MaxVideos + 1)
        placeReplacing(count);
}

void frmMedia::sayNothingPlays()
{
    sweepFailedSlots();
    CurrentAlias.clear();
    // Nothing else is on the screen that would show what has happened.
    lblTitleBar.Caption = localised("message.cannotPlay");
}

void frmMedia::placeReplacing(Long count)
{
    Long place = 0;
    forEachLive([&](frmChild& window) {
        if (count == 1) {
            MediaGetSizeAlias(window.MediaFile);
            placeSingle(window, 0);
        } else {
            placeGrid(window, count, place, CellOrder::Reading);
        }
        window.Refresh();
        if (isChosen(window)) {
            mciSend("Play " + trim(window.MediaFile) + " ");
            showTitleOf(window.path());
        }
        window.Show();
        place += 1;
    });
}

} // namespace tandrel

// What happens by itself: the slow ticks of the console. `Timer2` and `Timer4`.

#include "console/frm_media.h"
#include "console/holders.h"
#include "fullscreen/frm_panel.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/other_media.h"
#include "video/slots.h"
#include "video/video_window.h"

namespace tandrel
{

namespace
{

// About 76 seconds of ticks, well below what any screen saver or power saving waits for.
constexpr int kTicksAwake = 100;
constexpr std::size_t kBlanksAround = 50;
// What the media service answers for a device that has not answered it in time.
constexpr int kNoAnswer = 276;

/// Where a video stands, in ms; what can't be read is 0.
struct Reading {
    Long position;
    Long length;
    bool answered = true;
};

Reading read(const Alias& alias)
{
    mciSend("set " + alias + " time format ms");
    Reading reading;
    const MciAnswer position = mciAsk("status " + alias + " position");
    reading.answered = position.result != kNoAnswer;
    if (!reading.answered)
        return reading;
    reading.position = numberAtFront(position.text);
    const MciAnswer length = mciAsk("status " + alias + " length");
    reading.answered = length.result != kNoAnswer;
    reading.length = numberAtFront(length.text);
    return reading;
}

} // namespace

void frmMedia::Timer2_Timer()
{
    if (ClosingDown)
        return;
    loadSign.follow(*this, CurrentAlias);
    watchParkedCursor();
    keepAwake();
    notePanel();
    leaveByDoubleClick();
    ClickState = 0;
    tellClicks();
    if (titleIsIdle())
        return;
    scrollTitle();
    watchFullScreen();
    restartEndedVideos();
}

void frmMedia::keepAwake()
{
    StayAwakeTicks += 1;
    if (StayAwakeTicks <= kTicksAwake)
        return;
    if (FullScreenOn)
        services().screenSaver->nudge();
    StayAwakeTicks = 0;
}

void frmMedia::tellClicks()
{
    lblClick.Caption = "Click: " + text(ClickCount);
    lblDblClick.Caption = "DblClick: " + FixedPoint(ClickState).text();
    lblClick.Refresh();
    lblDblClick.Refresh();
}

void frmMedia::scrollTitle()
{
    if (lblDuration.caption() == "0:00:00")
        return;
    if (!trim(lblTitleBar.caption()).empty()) {
        lblTitleBar.Caption = fromSecondCharacter(lblTitleBar.caption());
        return;
    }
    ignoringErrors([this] {
        const Text title = DVDMode ? Text("DVD Movie") : " [ " + mediaTitle() + " ] ";
        lblTitleBar.Caption = blanks(kBlanksAround) + title + blanks(kBlanksAround);
    });
}

void frmMedia::restartEndedVideos()
{
    if (DVDMode || (SlideMode == "1" && List2.ListCount() != 1))
        return;
    // All are asked before any is waited for.
    std::vector<Text> questions;
    forEachPlayable(
        [&](const frmChild& window) { questions.push_back("status " + trim(window.MediaFile) + " position"); });
    services().mci->expect(questions);
    // One whose place can't be held or whose device does not answer is left alone; the others go on.
    forEachPlayable([this](frmChild& window) { ignoringErrors([&] { restartIfEnded(window); }); });
}

void frmMedia::restartIfEnded(const frmChild& window)
{
    const Alias alias = trim(window.MediaFile);
    const Reading reading = read(alias);
    if (!reading.answered)
        return;
    if (reading.position >= reading.length)
        mciSend("Play " + alias + " from 0");
    if (!FullScreenOn && !FastForward && !FastRewind && alias == CurrentAlias)
        MediaSetVolumeAlias(alias, window.Volume);
}

void frmMedia::Timer4_Timer()
{
    if (ClosingDown || !FullScreenOn)
        return;
    CursorPos = services().pointer->position();
    if (frmPanel().top() >= FullTop + FullHeight)
        PanelUp = false;
    if (CursorLastX != static_cast<float>(CursorPos.x) || CursorLastY != static_cast<float>(CursorPos.y)) {
        CursorIdle = false;
        return;
    }
    if (CursorIdle && !VolumeTipOn && !frmPanel().standsUp() && !FullMenuOpen && !CursorParked)
        parkCursor();
    CursorIdle = true;
}

} // namespace tandrel

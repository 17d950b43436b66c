// What the ticks of the console watch.

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/screen_saver.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "video/other_media.h"
#include "video/slots.h"

namespace tandrel
{

namespace
{
// About 76 seconds of ticks, well below what any screen saver or power saving waits for.
constexpr int kTicksAwake = 100;
} // namespace

void frmMedia::Timer1_Timer()
{
    if (ClosingDown || mediaKind() != MediaKind::Files)
        return;
    // A window whose open failed is sent no command.
    const frmChild* window = slotPlaying(CurrentAlias);
    if (!window || window->hasFailed())
        return;
    CurrentPosMs = MediaGetPosition();
    if (MediaLengthMs > 0)
        SeekSlider.Max = MediaLengthMs;
    if (CurrentPosMs >= MediaLengthMs)
        return;
    SeekSlider.Value = CurrentPosMs;
    Long shown = CurrentPosMs;
    lblCurTime.Caption = FormatTime(shown);
}

void frmMedia::Timer3_Timer()
{
    if (ClosingDown)
        return;
    runWaitingKeys();
    if (CurrentAlias.empty())
        return;
    if (FastForward)
        MediaFastForward();
    else if (FastRewind)
        MediaFastRewind();
}

void frmMedia::Timer2_Timer()
{
    if (ClosingDown)
        return;
    keepAwake();
    if (ClickState == 1.0) {
        if (!FullMedia.empty() && FullScreenOn && !PanelUp && !FullMenuOpen)
            leaveFullScreen();
        else
            PanelUp = false;
    }
    ClickState = 0;
    tellClicks();
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
    lblDblClick.Caption = "DblClick: " + text(ClickState);
    lblClick.Refresh();
    lblDblClick.Refresh();
}

void frmMedia::leaveFullScreen()
{
    if (frmChild* window = slotPlaying(FullMedia)) {
        FullScreenOn = false;
        ScreenSaverSwitch(true);
        restoreFromFull(*window);
        lblTitleBar.Caption = titleFor(fileNameOf(window->path()));
        FullMedia.clear();
    }
    Unload<class frmPanel>();
    mciSend("Play " + FullMedia + " ");
    FullMedia.clear();
    Visible = true;
}

void frmMedia::restoreFromFull(frmChild& window)
{
    window.Full = false;
    window.setFullScreen(false);
    window.Style.Titlebar = true;
    window.Style.Border = true;
    window.Move({SavedLeft, SavedTop, SavedWidth, SavedHeight});
    window.picVideo.BorderStyle = 1;
    window.Refresh();
    window.Show();
    SetFocus();
    window.SetFocus();
}

void frmMedia::followEndOfFullScreen()
{
    if (FullScreenOn)
        return;
    for (const auto& slot : SlotTable(VideoWindows)) {
        if (!slot || !slot->Full)
            continue;
        PanelUp = false;
        restoreFromFull(*slot);
        Unload<class frmPanel>();
        Timer4.Enabled = true;
    }
}

} // namespace tandrel

// What goes on in full screen: the parked cursor, the panel that a touch brings up, the refit, and the way out.

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/screen_saver.h"
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

// The parking place: at the right edge, so far down. Pixels.
constexpr int kParkedY = 150;
constexpr int kNearEdge = 5;
// The zone at the lower edge that brings up the panel. Twips.
constexpr int kTouchZone = 100;
constexpr int kRefitTicks = 5;

int rightEdge()
{
    const class frmMedia& console = frmMedia();
    return Long((console.FullLeft + console.FullWidth) / static_cast<double>(screen().TwipsPerPixelX()));
}

} // namespace

void frmMedia::parkCursor()
{
    CursorLastX = static_cast<float>(divide(static_cast<double>(FullLeft + FullWidth), screen().TwipsPerPixelX()));
    CursorLastY = kParkedY;
    services().pointer->showCursor(false);
    CursorParked = true;
    CursorHomeX = static_cast<float>(CursorPos.x);
    CursorHomeY = static_cast<float>(CursorPos.y);
    MoveMouse(CursorLastX, CursorLastY);
    // These numbers are meant for a monitor that begins at the top of the desktop and has none beside it.
    const PixelRect monitor = consoleMonitor();
    if (!monitor.contains(services().pointer->position()))
        MoveMouse(monitor.right - 1, monitor.top + kParkedY);
    ParkedAt = services().pointer->position();
}

bool frmMedia::hasLeftParking() const
{
    const PixelPoint now = services().pointer->position();
    const auto isThere = [](PixelPoint at) { return at.x >= rightEdge() - kNearEdge && at.y == kParkedY; };
    // Where the system would not move it there, it is only hidden, and wakes when it moves from where it is.
    return isThere(ParkedAt) ? !isThere(now) : !(now == ParkedAt);
}

void frmMedia::showParkedCursor()
{
    if (!CursorParked)
        return;
    MoveMouse(CursorHomeX, CursorHomeY);
    services().pointer->showCursor(true);
    CursorHomeX = CursorHomeY = -1;
    CursorParked = false;
}

void frmMedia::wakeCursor(const Text& title)
{
    if (!CursorParked)
        return;
    Timer4.Enabled = false;
    showParkedCursor();
    bringUpPanel(title);
    Timer4.Enabled = true;
}

void frmMedia::watchParkedCursor()
{
    if (FullScreenOn && CursorParked && hasLeftParking())
        wakeCursor(panelTitle());
}

void frmMedia::watchFullScreen()
{
    if (!FullScreenOn)
        return;
    ignoringErrors([this] { watchPointer(); });
    ignoringErrors([this] { watchTouch(); });
    ignoringErrors([this] { refit(); });
}

void frmMedia::watchPointer()
{
    CursorPos = services().pointer->position();
    const bool moved = CursorLastX != static_cast<float>(CursorPos.x) || CursorLastY != static_cast<float>(CursorPos.y);
    const bool nothingUp = !frmPanel().standsUp() && !PanelUp && !FullMenuOpen;
    if (moved || !(nothingUp && CursorIdle))
        CursorIdle = false;
    CursorLastX = static_cast<float>(CursorPos.x);
    CursorLastY = static_cast<float>(CursorPos.y);
}

void frmMedia::watchTouch()
{
    const double y = CursorPos.y * screen().TwipsPerPixelY();
    const bool onMonitor = FullTop == 0 || consoleMonitor().contains(CursorPos);
    if (!isAtLowerEdge(y, kTouchZone) || !onMonitor || FullMenuOpen || !isAtLowerEdge(frmPanel().top() - 1, kTouchZone))
        return;
    bringUpPanel(panelTitle());
    Timer4.Enabled = false;
}

void frmMedia::refit()
{
    if (RefitTicks > 0 && RefitTicks < kRefitTicks) {
        RefitTicks += 1;
        return;
    }
    frmChild* window = RefitTicks == kRefitTicks ? slotPlaying(CurrentAlias) : nullptr;
    if (!window)
        return;
    // The corner stands in twips here, which is right on the first monitor; the window is put right elsewhere.
    window->cover({FullLeft, FullTop, FullLeft + pixelsX(FullWidth), FullTop + pixelsY(FullHeight)});
    window->picVideo.move(FullPicture);
    window->SetFocus();
    RefitTicks = 0;
}

void frmMedia::leaveByDoubleClick()
{
    if (ClickState != 1.0)
        return;
    const bool pictureOnly = FullScreenOn && !PanelUp && !FullMenuOpen;
    if (playerIsFull())
        leavePlayer(*playerWindow());
    else if (mediaKind() == MediaKind::DiscOnVideoControl && pictureOnly)
        leaveDisc();
    else if (!FullMedia.empty() && pictureOnly)
        leaveFullScreen();
    else
        PanelUp = false;
}

bool frmMedia::playerIsFull() const
{
    const auto* player = playerWindow();
    bool full = false;
    if (player)
        ignoringErrors([&] { full = controlOf(*player).fullScreen; });
    return full;
}

void frmMedia::leavePlayer(const ControlWindow<MediaPlayerControl>& player)
{
    ignoringErrors([&] { controlOf(player).fullScreen = false; });
    ScreenSaverSwitch(true);
}

void frmMedia::leaveDisc()
{
    DvdFullByClick = false;
    FullScreenOn = false;
    ScreenSaverSwitch(true);
    showParkedCursor();
    if (VideoWindow* window = otherMedia().dvd.form) {
        if (window->Full)
            window->returnFromScreen();
        window->showStrips(true);
        window->Show();
        window->SetFocus();
    }
    FullMedia.clear();
    SetFocus();
}

void frmMedia::leaveFullScreen()
{
    showParkedCursor();
    if (frmChild* window = slotPlaying(FullMedia)) {
        FullScreenOn = false;
        ScreenSaverSwitch(true);
        window->returnFromScreen();
        window->Show();
        if (!KeepConsoleBack)
            SetFocus();
        KeepConsoleBack = false;
        window->SetFocus();
        showTitleOf(fileNameOf(window->path()));
        FullMedia.clear();
    }
    Unload<class frmPanel>();
    mciSend("Play " + FullMedia + " ");
    FullMedia.clear();
    Visible = true;
    // Nothing fills the screen, whatever the flag says.
    if (FullScreenOn && !fullWindow()) {
        FullScreenOn = false;
        ScreenSaverSwitch(true);
    }
}

void frmMedia::followEndOfFullScreen()
{
    VideoWindow* window = FullScreenOn ? nullptr : fullWindow();
    if (!window)
        return;
    DvdFullByClick = false;
    PanelUp = false;
    showParkedCursor();
    window->returnFromScreen();
    window->Show();
    SetFocus();
    window->SetFocus();
    Unload<class frmPanel>();
    Timer4.Enabled = true;
}

} // namespace tandrel

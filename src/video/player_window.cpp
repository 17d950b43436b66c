#include "video/player_window.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/wheel.h"
#include "fullscreen/frm_panel.h"
#include "media/shared_state.h"
#include "toolkit/press.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/other_media.h"

namespace tandrel
{

namespace
{
// What the control is larger by than its form, so that its own bar lies below the form's lower edge.
constexpr int kBelowWithTitle = 900;
constexpr int kBelowWithout = 1000;
constexpr int kNarrowerWithout = 100;
} // namespace

void resetConsole()
{
    class frmMedia& console = frmMedia();
    console.lblCurTime.Caption = "0:00:00";
    console.lblDuration.Caption = "0:00:00";
    console.lblTitleBar.Caption = "";
    console.PolledTitle.clear();
}

PlayerWindow::PlayerWindow(Text name, Text caption) : VideoForm(std::move(name), Frame::Video, {0, 0, 11820, 6375})
{
    Caption = std::move(caption);
    DropFiles = [](const std::vector<Text>& paths) { frmMedia().openDropped(paths); };
    KeyDown = [this](Key key) { return picDVD.takeKey(key); };
    MenuKey = [this] { picDVD.chooseTracks(); };
}

void PlayerWindow::onActivate()
{
    screen().MousePointer = pointer::kHourglass;
    trap([this] { becomeActive(); });
    // Left behind by an error it would keep every command away as busy.
    screen().MousePointer = pointer::kDefault;
    picDVD.bringScreenUp();
}

void PlayerWindow::becomeActive()
{
    class frmMedia& console = frmMedia();
    console.TrackHold = false;
    console.PolledTitle.clear();
    if (FullScreenOn)
        console.Timer4.Enabled = true;
    // The control takes all mouse input for itself, so that a button which is down now is how its right click is known.
    // With the control key it asks for the sound and the subtitles.
    const bool right = buttonIsDown(MouseButton::Right) && !services().pointer->controlDown();
    bool filled = false;
    if (right && !FullScreenOn)
        ignoringErrors([&] { filled = console.fillPlayer({this, &picDVD}); });
    if (filled) {
        spendPress(MouseButton::Right);
        SetFocus();
        console.Timer4.Enabled = false;
    }
    if (FullScreenOn && dropsPanel(right)) {
        PanelUp = false;
        putPanelBelow();
    }
    FullMenuOpen = false;
    console.lblSpeed.Caption = "0x";
    console.lblCurTime.Caption = "0:00:00";
    console.SeekSlider.Value = 0;
    startPlaying();
}

void PlayerWindow::onResize()
{
    if (!visible())
        return;
    ignoringErrors([this] {
        if (!Style.Titlebar()) {
            frmMedia().TitleOff = true;
            picDVD.move({0, 0, width() - kNarrowerWithout, height() + kBelowWithout});
        } else if (!Full) {
            picDVD.move({0, 0, width(), height() + kBelowWithTitle});
        }
        picDVD.layOut();
    });
    Refresh();
}

void PlayerWindow::onUnload()
{
    picDVD.end();
    WheelHookRemove(hWnd());
    // Another one may have come already, or come with the focus, which takes what later starts have handed over.
    if (isTheOne()) {
        resetConsole();
        frmMedia().SetFocus();
    }
    if (isTheOne())
        forgetIt();
}

} // namespace tandrel

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
    takeConsole();
    console.PolledTitle.clear();
    const bool right = rightButtonFills();
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
    showBeginning();
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
        showNothing();
        frmMedia().SetFocus();
    }
    if (isTheOne())
        forgetIt();
}

} // namespace tandrel

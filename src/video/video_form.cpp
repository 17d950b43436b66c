#include "video/video_form.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/key_commands.h"
#include "desktop/wheel.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "toolkit/press.h"
#include "toolkit/trap.h"

#include <cmath>

namespace tandrel
{

namespace
{
constexpr double kSizeStep = 0.1;
constexpr int kSmallestHeight = 2000;
constexpr int kInset = 400;
} // namespace

void VideoForm::MouseWheel(Long, Long rotation, Long, Long)
{
    if (!Full)
        ignoringErrors([&] { wheelSize(rotation); });
}

void VideoForm::wheelSize(Long rotation)
{
    if (rotation > 0 && width() < frmMedia().FullWidth) {
        Height = height() + Long(std::floor(height() * kSizeStep));
        Width = width() + Long(std::floor(width() * kSizeStep));
    } else if (rotation < 0 && height() > kSmallestHeight) {
        Height = height() - height() * kSizeStep;
        Width = width() - width() * kSizeStep;
    }
}

void VideoForm::OpenDoor() { mciSend("set CDAudio door open"); }

void VideoForm::takeHold()
{
    Shortcut = &pressKey;
    Style.Client = this;
    WheelHookInstall(hWnd());
}

void VideoForm::takeConsole()
{
    frmMedia().TrackHold = false;
    if (FullScreenOn)
        frmMedia().Timer4.Enabled = true;
}

bool VideoForm::rightButtonFills() { return buttonIsDown(MouseButton::Right) && !services().pointer->controlDown(); }

void VideoForm::showBeginning()
{
    FullMenuOpen = false;
    frmMedia().lblSpeed.Caption = "0x";
    frmMedia().lblCurTime.Caption = "0:00:00";
    frmMedia().SeekSlider.Value = 0;
}

void VideoForm::showNothing()
{
    class frmMedia& console = frmMedia();
    console.lblCurTime.Caption = "0:00:00";
    console.lblDuration.Caption = "0:00:00";
    console.lblTitleBar.Caption = "";
    console.PolledTitle.clear();
}

void VideoForm::takeCorner()
{
    Top = frmMedia().FullTop + kInset;
    Left = frmMedia().FullLeft + kInset;
}

} // namespace tandrel

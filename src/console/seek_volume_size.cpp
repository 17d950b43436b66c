// The sliders of place and volume, the size of the picture, and the box for full screen.

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/screen_saver.h"
#include "fullscreen/frm_panel.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "toolkit/trap.h"
#include "video/other_media.h"
#include "video/slots.h"
#include "video/video_window.h"

namespace tandrel
{

namespace
{

constexpr int kPagePercent = 3;
constexpr int kVolumeStep = 10;
constexpr int kSizeStep = 25;
constexpr int kLargest = 300;
constexpr int kSmallest = 50;
constexpr int kNativeSize = 100;

} // namespace

void frmMedia::wireSliders()
{
    SeekSlider.Click = [this] { SeekSlider_Click(); };
    SeekSlider.MouseDown = [this](const MouseEvent& event) { SeekSlider_MouseDown(event); };
    SeekSlider.MouseMove = [this](const MouseEvent& event) { SeekSlider_MouseMove(event); };
    SeekSlider.MouseUp = [this](const MouseEvent&) { SeekSlider_MouseUp(); };
    SeekSlider.Scroll = [this] { SeekSlider_Scroll(); };
    SeekSlider.Change = [this] { SeekSlider_Change(); };
    InvertSlider.Scroll = [this] { InvertSlider_Scroll(); };
    VolumeSlider.Click = [this] { VolumeSlider_Click(); };
    chkFullscreen.Click = [this] { chkFullscreen_Click(); };
    cmdSize[size::kLarger]->Click = [this] { cmdSize_Click(1); };
    cmdSize[size::kSmaller]->Click = [this] { cmdSize_Click(-1); };
}

void frmMedia::takePage() { SeekSlider.LargeChange = SeekSlider.Max() * double(kPagePercent) / 100; }

void frmMedia::SeekSlider_Click()
{
    takePage();
    if (!seekOtherMedia(SeekSlider.Value) && !CurrentAlias.empty())
        if (const frmChild* window = slotPlaying(CurrentAlias))
            MediaSeek(SeekSlider.Value, window->Paused);
    InvertSlider.SetFocus();
}

void frmMedia::SeekSlider_MouseDown(const MouseEvent& event)
{
    // The page that this press may step by is one of the present medium.
    takePage();
    if (!somethingIsLoaded())
        return;
    Timer1.Enabled = false;
    if (event.left())
        SeekDragging = true;
}

void frmMedia::SeekSlider_MouseMove(const MouseEvent& event)
{
    if (!somethingIsLoaded() || !event.left() || !SeekDragging) {
        SeekDragging = false;
        return;
    }
    switch (mediaKind()) {
    case MediaKind::DiscOnVideoControl:
    case MediaKind::DiscOnPlayer:
        return;
    case MediaKind::Hd:
        seekOtherMedia(SeekSlider.Value);
        return;
    case MediaKind::Files:
        MediaSeek(SeekSlider.Value, 1);
        return;
    }
}

void frmMedia::SeekSlider_MouseUp()
{
    if (somethingIsLoaded()) {
        Timer1.Enabled = true;
        Playing = true;
    }
    SeekDragging = false;
}

void frmMedia::SeekSlider_Scroll()
{
    switch (mediaKind()) {
    case MediaKind::DiscOnVideoControl:
        return ignoringErrors([this] { showDiscTime(); });
    case MediaKind::DiscOnPlayer:
    case MediaKind::Hd:
        return ignoringErrors([this] {
            lblCurTime.Caption = playerCaption(controlOf(*playerWindow()).controls().currentPositionString());
        });
    case MediaKind::Files: {
        CurrentPosMs = MediaGetPosition();
        Long shown = CurrentPosMs;
        lblCurTime.Caption = FormatTime(shown);
    }
    }
}

void frmMedia::SeekSlider_Change()
{
    if (FullScreenOn && !frmPanel().PanelSeeking)
        frmPanel().followSlider();
}

void frmMedia::InvertSlider_Scroll()
{
    VolumeSlider.Value = kLoudest - InvertSlider.Value();
    if (mediaKind() == MediaKind::DiscOnVideoControl)
        return;
    if (auto* player = playerWindow()) {
        ignoringErrors([&] { controlOf(*player).settings().setVolume(VolumeSlider.Value()); });
        return;
    }
    if (!CurrentAlias.empty())
        MediaSetVolume(VolumeSlider.Value);
    VolumeLevel = VolumeSlider.Value();
    forEachLive([this](frmChild& window) {
        if (window.plays(CurrentAlias))
            window.Volume = VolumeSlider.Value;
    });
}

void frmMedia::VolumeSlider_Click()
{
    if (!CurrentAlias.empty())
        MediaSetVolume(VolumeSlider.Value);
    VolumeLevel = VolumeSlider.Value();
}

void frmMedia::stepVolume(int direction)
{
    const Long now = InvertSlider.Value;
    const bool canMove = direction < 0 ? now > InvertSlider.Min() : now < InvertSlider.Max();
    if (CurrentAlias.empty() || !canMove)
        return;
    InvertSlider.Value = now + direction * kVolumeStep;
    VolumeSlider.Value = kLoudest - InvertSlider.Value();
    VolumeLevel = VolumeSlider.Value();
    MediaSetVolume(VolumeLevel);
}

void frmMedia::cmdSize_Click(int direction)
{
    if (!CurrentAlias.empty())
        stepSize(direction);
}

void frmMedia::stepSize(int direction)
{
    if (direction > 0 ? SizePercent < kLargest : SizePercent > kSmallest)
        SizePercent += direction * kSizeStep;
    FixedPoint percent = FixedPoint::whole(SizePercent == kNativeSize ? 0 : static_cast<int>(SizePercent));
    MediaPutWindow(percent);
    lblSize.Caption = text(SizePercent) + " %";
}

void frmMedia::chkFullscreen_Click()
{
    if (chkFullscreen.value() != 1) {
        FullScreenOn = false;
        ScreenSaverSwitch(true);
        MediaPlay();
        return;
    }
    const bool wasFull = fullWindow() != nullptr;
    const bool playerWasFull = playerIsFull();
    chkFullscreen.Value = 0;
    FullScreenOn = true;
    ScreenSaverSwitch(false);
    MediaPlay();
    FullMedia = CurrentAlias;
    // The play has taken the flag back. What fills the screen follows it, and what was asked for comes by the road of
    // the right click.
    followEndOfFullScreen();
    if (playerWasFull)
        leavePlayer(*playerWindow());
    else if (!wasFull)
        fillByCommand();
}

void frmMedia::fillByCommand()
{
    if (auto* player = playerWindow()) {
        ignoringErrors([&] { fillPlayer(*player); });
        return;
    }
    const bool isDisc = mediaKind() == MediaKind::DiscOnVideoControl;
    VideoWindow* disc = isDisc ? otherMedia().dvd.form : nullptr;
    frmChild* window = isDisc ? nullptr : slotPlaying(CurrentAlias);
    if (disc && disc->visible())
        fillDisc(*disc);
    else if (window && window->visible())
        fillWith(*window);
}

} // namespace tandrel

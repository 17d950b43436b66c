#include "fullscreen/frm_panel.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/key_commands.h"
#include "media/shared_state.h"
#include "texts/frm_update.h"
#include "toolkit/activation.h"
#include "toolkit/program.h"
#include "toolkit/screen.h"
#include "video/other_media.h"
#include "video/slots.h"
#include "video/video_window.h"

namespace tandrel
{

namespace
{

constexpr int kSlideMs = 160;
constexpr int kSlideStep = 2;
constexpr int kLeftOfCentre = 500;
constexpr int kLabelGap = 200;
constexpr int kStripEnd = 100;

/// The top runs from `from` to `to` twips below the monitor's upper edge. The screen shows as many of the steps as it
/// can in that time.
void slide(class frmPanel& panel, int from, int to)
{
    const Long edge = frmMedia().FullTop;
    const int direction = to < from ? -kSlideStep : kSlideStep;
    backend().animate((to - from) / direction + 1, kSlideMs, [&](int step) {
        panel.Top = edge + from + step * direction;
        panel.Refresh();
    });
}

} // namespace

frmPanel::frmPanel() : Form("frmPanel", Frame::Bare, {0, 0, 14400, kHeight})
{
    Caption = "Panel";
    picMain.picture = "panel_row";
    lblCurrent.alignment = Alignment::Right;
    lblCurrent.role = TextRole::Value;
    imgMoveUp.pointerShape = pointer::kHand;
    imgDVD.Visible = false;
    wireButtons();
    wireStrip();
    wireHover();
    Timer2.Tick = [this] { Timer2_Timer(); };
    KeyPress = [this](int code) { Form_KeyPress(code); };
    Shortcut = [](const KeyStroke& key) { return !isOwnKey(key) && pressKey(key); };
}

void frmPanel::onLoad()
{
    placeControls();
    showKeysOfPanel(*this);
    PanelSeeking = false;
    PanelHold = false;
    MuteMemory = 0;
    Refresh();
}

void frmPanel::placeControls()
{
    const class frmMedia& console = frmMedia();
    const Long below = console.FullTop + console.FullHeight;
    keepOffFrom(below);
    Move({console.FullLeft, below, console.FullWidth, kHeight});
    picMain.Left = (width() - picMain.width()) / 2 - kLeftOfCentre;
    lblTitle.Left = picMain.left() + picMain.width() + kLabelGap;
    lblCurrent.Left = picMain.left() - lblCurrent.width() - kLabelGap;
    slide_black.Width = console.FullWidth - slide_black.left() - kStripEnd;
    slide_blue.pictureWidth = slide_black.width();
    slide_blue.Width = 0;
    imgMoveUp.Width = slide_black.width();
    if (DVDMode)
        imgDVD.Visible = true;
}

void frmPanel::onActivate()
{
    PanelIdle = false;
    PanelUp = true;
    InvertSlider.Value = frmMedia().VolumeSlider.Value;
    PanelSeeking = false;
    PanelHold = false;
    // Whatever was shown before: a disc may have come or gone, and the video been held by other means.
    imgDVD.Visible = DVDMode;
    followHold();
}

void frmPanel::followHold()
{
    const frmChild* selected = slotPlaying(CurrentAlias);
    showPlayButton(selected && selected->Paused == 1);
}

void frmPanel::showPlayButton(bool play)
{
    Image& front = play ? imgPlay : imgPause;
    Image& behind = play ? imgPause : imgPlay;
    front.Visible = true;
    front.ZOrder();
    // Both are round: the one behind would be seen around the one in front.
    behind.Visible = false;
}

void frmPanel::followSlider()
{
    const Slider& place = frmMedia().SeekSlider;
    imgPull.Left = divide(static_cast<double>(place.value()) * slide_black.width(), place.maximum());
    slide_blue.Width = imgPull.left();
}

bool isAtLowerEdge(double y, Long margin) { return y >= frmMedia().FullTop + frmMedia().FullHeight - margin; }

bool frmPanel::standsUp() const { return !isAtLowerEdge(top()); }

void frmPanel::Timer2_Timer()
{
    // What the user has done just now counts.
    backend().runPending();
    if (isEnding() || !FullScreenOn || (Loaded<class frmUpdate>() && frmUpdate().Visible()) || PanelHold)
        return;
    if (!PanelIdle || !standsUp()) {
        PanelIdle = true;
        return;
    }
    const double x = PanelCursor.x * screen().TwipsPerPixelX();
    const double y = PanelCursor.y * screen().TwipsPerPixelY();
    if (x > left() && x < left() + width() && y > top())
        return;
    slideDown();
}

void frmPanel::slideDown()
{
    const Long height = frmMedia().FullHeight;
    slide(*this, height - kHeight, height);
    // The steps end a twip short of that, which would count as up.
    putPanelBelow();
    PanelIdle = false;
    PanelUp = false;
    frmMedia().Timer4.Enabled = true;
    focusPicture();
}

void frmPanel::focusPicture()
{
    if (DVDMode) {
        if (mediaKind() == MediaKind::DiscOnVideoControl && otherMedia().dvd.form)
            otherMedia().dvd.form->SetFocus();
        return;
    }
    for (std::size_t index = 1; index < VideoWindows.size(); ++index)
        if (VideoWindows[index] && VideoWindows[index]->plays(CurrentAlias))
            return VideoWindows[index]->SetFocus();
    // Off the screen the panel can't hold the keys. Most window managers hand them to the picture by themselves.
    if (frmChild* window = activeForm() == this ? firstSlot([](const frmChild& slot) { return slot.Full; }) : nullptr)
        window->SetFocus();
}

void bringUpPanel(const Text& title)
{
    class frmMedia& console = frmMedia();
    PanelUp = true;
    class frmPanel& panel = frmPanel();
    panel.Show();
    // It may have gone from under a pointer that has moved elsewhere since.
    panel.lightUp(nullptr);
    panel.imgDVD.Visible = DVDMode;
    panel.lblTitle.Caption = title;
    panel.ZOrder();
    panel.Left = console.FullLeft;
    slide(panel, console.FullHeight, console.FullHeight - frmPanel::kHeight);
    panel.PanelIdle = false;
}

void putPanelBelow() { frmPanel().Top = frmMedia().FullTop + frmMedia().FullHeight; }

} // namespace tandrel

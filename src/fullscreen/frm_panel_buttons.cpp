// What the buttons, the volume and the keys of the panel do.

#include "console/frm_media.h"
#include "console/holders.h"
#include "fullscreen/frm_panel.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "toolkit/trap.h"
#include "video/other_media.h"
#include "video/selected_video.h"
#include "video/slots.h"
#include "video/video_window.h"

#include <array>

namespace tandrel
{

namespace
{

/// A button's picture under the pointer and at rest; empty where the row's own picture shows it.
struct Look {
    Image frmPanel::*image;
    const char* hover;
    const char* rest;
    /// Its hover puts all others to rest.
    bool aloneLit;
    const char* tip;
};

constexpr std::array<Look, 7> kLooks{{
    {&frmPanel::imgPlay, "panel_play_on", "panel_play", true, "Play"},
    {&frmPanel::imgPause, "panel_pause_on", "panel_pause", true, "Pause"},
    {&frmPanel::imgRwd, "panel_rewind_on", "", true, "Rewind"},
    {&frmPanel::imgFwd, "panel_forward_on", "", true, "Forward"},
    {&frmPanel::imgNoFull, "panel_windowed_on", "", true, "Fullscreen Off"},
    {&frmPanel::imgDVD, "panel_disc_on", "panel_disc", false, "Menu DVD"},
    {&frmPanel::imgVolButton, "panel_sound_on", "", false, "Mute On/Off"},
}};
constexpr const char* kMuted = "panel_muted";
constexpr const char* kMutedHover = "panel_muted_on";

} // namespace

void frmPanel::wireButtons()
{
    for (const Look& look : kLooks) {
        Image& image = this->*look.image;
        image.ToolTip = look.tip;
        image.dimmedAtRest = false;
        showsPress(image);
    }
    imgPlay.Click = [this] { imgPlay_Click(); };
    imgPause.Click = [this] { imgPause_Click(); };
    imgFwd.Click = [this] {
        if (!tellOtherMedia(Transport::Forward))
            jump(FastForward, FastRewind);
    };
    imgRwd.Click = [this] {
        if (!tellOtherMedia(Transport::Rewind))
            jump(FastRewind, FastForward);
    };
    imgNoFull.Click = [this] { imgNoFull_Click(); };
    imgDVD.Click = [] {
        if (DVDMode)
            tellOtherMedia(Transport::Menu);
    };
    imgVolButton.Click = [this] { imgVolButton_Click(); };
    InvertSlider.Scroll = [this] { InvertSlider_Scroll(); };
    InvertSlider.ToolTip = "Volume";
}

void frmPanel::wireHover()
{
    for (const Look& look : kLooks) {
        Image& image = this->*look.image;
        image.MouseMove = [this, &look, &image](const MouseEvent&) {
            if (look.aloneLit)
                lightUp(&image);
            else
                image.Picture = &image == &imgVolButton && MuteMemory != 0 ? kMutedHover : look.hover;
            PanelIdle = false;
        };
    }
    picMain.MouseMove = [this](const MouseEvent&) {
        lightUp(nullptr);
        PanelIdle = false;
    };
    InvertSlider.MouseMove = [this](const MouseEvent&) { PanelIdle = false; };
    MouseMove = [this](const MouseEvent&) {
        lightUp(nullptr);
        PanelIdle = false;
    };
    MouseLeave = [this] { lightUp(nullptr); };
    MouseDown = [this](const MouseEvent&) { PanelIdle = false; };
    // Texts and pictures take the mouse from the form they lie on.
    for (Control* control : controls()) {
        if (!control->MouseMove)
            control->MouseMove = MouseMove;
        control->MouseDown = [this, own = std::move(control->MouseDown)](const MouseEvent& event) {
            PanelIdle = false;
            if (own)
                own(event);
        };
    }
}

Text frmPanel::restPicture(const Image& image) const
{
    if (&image == &imgVolButton && MuteMemory != 0)
        return kMuted;
    for (const Look& look : kLooks)
        if (&(this->*look.image) == &image)
            return look.rest;
    return {};
}

void frmPanel::lightUp(const Image* hovered)
{
    for (const Look& look : kLooks) {
        Image& image = this->*look.image;
        const Text wanted = &image == hovered ? Text(look.hover) : restPicture(image);
        if (image.picture() != wanted)
            image.Picture = wanted;
    }
}

void frmPanel::imgPlay_Click()
{
    showPlayButton(false);
    if (tellOtherMedia(Transport::Play) || CurrentAlias.empty())
        return;
    PanelSeeking = false;
    playSelected();
}

void frmPanel::imgPause_Click()
{
    if (!tellOtherMedia(Transport::Pause) && !CurrentAlias.empty()) {
        pauseSelected();
        SeekTarget = frmMedia().SeekSlider.Value;
    }
    showPlayButton(true);
}

void frmPanel::jump(bool& wanted, bool& opposite)
{
    PanelUp = true;
    PanelIdle = false;
    if (turnJump(wanted, opposite))
        MediaSetVolume(frmMedia().VolumeSlider.Value);
}

void frmPanel::imgNoFull_Click()
{
    class frmMedia& console = frmMedia();
    console.Timer4.Enabled = true;
    ClickState = 1.0;
    console.TrackHold = false;
    FullMenuOpen = false;
    PanelUp = false;
    unload(*this);
    // It is what leads out of full screen, and need not wait for its turn.
    console.Timer2.hasten();
}

void frmPanel::imgVolButton_Click()
{
    imgVolButton.Picture = kMuted;
    if (MuteMemory == 0) {
        MuteMemory = InvertSlider.Value;
        InvertSlider.Value = 0;
    } else {
        imgVolButton.Picture = "";
        InvertSlider.Value = MuteMemory;
        MuteMemory = 0;
    }
    giveVolume();
    PanelIdle = false;
}

void frmPanel::InvertSlider_Scroll()
{
    giveVolume();
    VolumeLevel = frmMedia().VolumeSlider.Value();
    imgVolButton.Picture = "";
    MuteMemory = 0;
    PanelIdle = false;
}

void frmPanel::giveVolume()
{
    class frmMedia& console = frmMedia();
    console.InvertSlider.Value = kLoudest - InvertSlider.Value();
    console.VolumeSlider.Value = InvertSlider.Value;
    if (auto* player = playerWindow()) {
        ignoringErrors([&] { controlOf(*player).settings().setVolume(console.VolumeSlider.Value()); });
        return;
    }
    if (mediaKind() != MediaKind::Files || CurrentAlias.empty())
        return;
    MediaSetVolume(console.VolumeSlider.Value);
    if (frmChild* window = slotPlaying(CurrentAlias))
        window->Volume = InvertSlider.Value;
}

void frmPanel::Form_KeyPress(int code)
{
    switch (code) {
    case 'l':
        return resumeByKey();
    case 'p':
        return imgPause_Click();
    case 'r':
        return imgRwd.Click();
    case 'f':
        return imgFwd.Click();
    default:
        // "0" is none of them.
        if (code >= '1' && code <= '9')
            bringVideoForward(code - '1');
    }
}

bool frmPanel::isOwnKey(const KeyStroke& key)
{
    const int code = key.character;
    return !typesNothing(key.name) &&
           (code == 'l' || code == 'p' || code == 'r' || code == 'f' || (code >= '1' && code <= '9'));
}

void bringVideoForward(int index)
{
    const auto slot = static_cast<std::size_t>(index);
    if (slot >= VideoWindows.size() || !VideoWindows[slot])
        return;
    PanelUp = true;
    VideoWindows[slot]->ZOrder();
    VideoWindows[slot]->SetFocus();
}

void frmPanel::resumeByKey()
{
    if (CurrentAlias.empty())
        return;
    FastForward = false;
    FastRewind = false;
    PanelSeeking = false;
    frmChild* window = slotPlaying(CurrentAlias);
    if (!window || window->Paused == 0)
        return;
    mciSend("Play " + CurrentAlias + " ");
    MediaSetVolume(frmMedia().VolumeSlider.Value);
    window->Paused = 0;
    showPlayButton(false);
}

} // namespace tandrel

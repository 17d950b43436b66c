// The commands on the selected video, and the buttons that give them to whatever medium is there.

#include "console/frm_media.h"
#include "console/holders.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "texts/frm_help.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/other_media.h"
#include "video/slots.h"
#include "video/video_window.h"

#include <array>

namespace tandrel
{

namespace
{

void playNextChapter() { controlOf(otherMedia().dvd).InputActive().PlayNextChapter(); }

void playPrevChapter() { controlOf(otherMedia().dvd).InputActive().PlayPrevChapter(); }

/// What a button does: a command for the disc or HD film that plays, else something to the file videos.
struct ButtonRow {
    Image frmMedia::*image;
    Transport command;
    void (frmMedia::*onFiles)();
};

constexpr std::array<ButtonRow, 5> kButtons{{
    {&frmMedia::imgPlay, Transport::Play, &frmMedia::playSelected},
    {&frmMedia::imgPause, Transport::Pause, &frmMedia::pressPause},
    {&frmMedia::imgFwd, Transport::Forward, &frmMedia::pressForward},
    {&frmMedia::imgRwd, Transport::Rewind, &frmMedia::pressRewind},
    {&frmMedia::imgReplay, Transport::Menu, &frmMedia::replaySelected},
}};

void hold(VideoControl& disc) { disc.Pause(); }
void hold(MediaPlayerControl& player)
{
    if (player.fullScreen)
        player.fullScreen = false;
    player.controls().pause();
}

/// Pauses the control and hides its window, as far as either can be done.
template <class Control, class Window>
void putAway(const ControlWindow<Control, Window>& window)
{
    ignoringErrors([&] { hold(controlOf(window)); });
    if (window.form != nullptr)
        ignoringErrors([&] { window.form->Hide(); });
}

} // namespace

void frmMedia::wireTransport()
{
    for (int index = 0; index < command::kCount; ++index)
        if (auto& button = cmdMedia[static_cast<std::size_t>(index)])
            button->Click = [this, index] { cmdMedia_Click(index); };
    for (const ButtonRow& row : kButtons)
        onImage(this->*row.image, [this, &row] {
            if (!tellOtherMedia(row.command))
                (this->*row.onFiles)();
            else if (row.command == Transport::Forward && mediaKind() == MediaKind::Hd)
                cmdFwd.Value = true;
        });
    onImage(imgBack, [this] { imgBack_Click(); });
    onImage(imgStep, [this] { imgStep_Click(); });
    onImage(imgPauseAll, [this] { imgPauseAll_Click(); });
    onImage(imgResync, [this] { imgResync_Click(); });
    onImage(imgMute, [this] { imgMute_Click(); });
    onImage(imgMax, [this] { stepVolume(-1); });
    onImage(imgMin, [this] { stepVolume(1); });
    cmdFwd.Click = [this] { cmdFwd_Click(); };
    cmdRwd.Click = [this] { cmdRwd_Click(); };
}

void frmMedia::cmdMedia_Click(int index)
{
    if (index == command::kOpen && isBusy())
        return;
    screen().MousePointer = pointer::kHourglass;
    switch (index) {
    case command::kPlay:
        cmdPlay();
        break;
    case command::kPause:
        cmdPause();
        break;
    case command::kStop:
        cmdStop();
        break;
    case command::kOpen:
        cmdOpen();
        break;
    case command::kHelp:
        screen().MousePointer = pointer::kDefault;
        frmHelp().Show();
        break;
    case command::kHide:
        cmdHide();
        break;
    case command::kExit:
        exitProgram();
        break;
    default:
        break;
    }
    screen().MousePointer = pointer::kDefault;
}

void frmMedia::cmdPlay()
{
    if (trim(CurrentAlias).empty())
        return;
    FastForward = false;
    FastRewind = false;
    frmChild* window = firstSlot([](const frmChild& slot) { return slot.plays(CurrentAlias) && slot.Paused == 1; });
    if (window) {
        MediaSeek(SeekSlider.Value, 0);
        MediaSetVolume(window->Volume);
        window->Paused = 0;
    }
    Playing = true;
}

void frmMedia::cmdPause()
{
    if (CurrentAlias.empty())
        return;
    MediaPause();
    if (frmChild* window = slotPlaying(CurrentAlias))
        window->Paused = 1;
    Playing = false;
}

void frmMedia::cmdStop()
{
    if (CurrentAlias.empty())
        return;
    Timer1.Enabled = false;
    lblCurTime.Caption = "0:00:00";
    SeekSlider.Value = 0;
    MediaSeek(0, 1);
    MediaPause();
    Playing = false;
}

void frmMedia::cmdHide()
{
    ignoringErrors([] {
        switch (mediaKind()) {
        case MediaKind::DiscOnVideoControl:
            return putAway(otherMedia().dvd);
        case MediaKind::DiscOnPlayer:
            return putAway(otherMedia().dvd2);
        case MediaKind::Hd:
            return putAway(otherMedia().mkv);
        case MediaKind::Files:
            return;
        }
    });
    forEachLive([](frmChild& window) {
        ignoringErrors([&] { window.Hide(); });
        ignoringErrors([&] { MediaPauseAlias(window.MediaFile); });
    });
    // Minimising is a resize, which must not bring back at once what has just gone.
    ignoringErrors([this] { WindowState = 1; });
    ResizePending = true;
}

void frmMedia::playSelected()
{
    if (SlideMode == "1" && !FullScreenOn && !WindowDragged)
        SlideShow();
    cmdMedia[command::kPlay]->Value = true;
}

void frmMedia::pressPause() { cmdMedia[command::kPause]->Value = true; }

void frmMedia::pressForward() { cmdFwd.Value = true; }

void frmMedia::pressRewind() { cmdRwd.Value = true; }

void frmMedia::replaySelected()
{
    if (CurrentAlias.empty())
        return;
    if (frmChild* window = slotPlaying(CurrentAlias)) {
        window->Paused = 0;
        MediaReplay();
    }
    Playing = true;
}

void frmMedia::cmdFwd_Click()
{
    if (DVDMode)
        return ignoringErrors(&playNextChapter);
    changeJump(FastForward, FastRewind);
}

void frmMedia::cmdRwd_Click()
{
    if (DVDMode)
        return ignoringErrors(&playPrevChapter);
    changeJump(FastRewind, FastForward);
}

void frmMedia::changeJump(bool& wanted, bool& opposite)
{
    if (!turnJump(wanted, opposite))
        return;
    lblSpeed.Caption = "0x";
    MediaSetVolume(VolumeSlider.Value);
}

} // namespace tandrel

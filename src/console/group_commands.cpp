// The commands on all videos: step, pause and resume, restart; and what is heard of them.

#include "console/frm_media.h"
#include "console/holders.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/other_media.h"
#include "video/slots.h"

namespace tandrel
{

namespace
{

constexpr int kForward = 1;
constexpr int kBackward = 0;
constexpr const char* kHeld = "1";

/// Tells the service which command each video gets next, so that none has to wait for another.
void expectForAll(const std::function<Text(const Alias&)>& command)
{
    std::vector<Text> commands;
    forEachLive([&](const frmChild& window) { commands.push_back(command(window.MediaFile)); });
    services().mci->expect(commands);
}

void tellPlayer(const ControlWindow<MediaPlayerControl>& window, Long level)
{
    ignoringErrors([&] { controlOf(window).settings().setVolume(level); });
}

} // namespace

void frmMedia::runGroupCommand(const std::function<void()>& command)
{
    if (DVDMode || screen().MousePointer() == pointer::kHourglass)
        return;
    screen().MousePointer = pointer::kHourglass;
    trap(command);
    screen().MousePointer = pointer::kDefault;
}

void frmMedia::imgStep_Click()
{
    runGroupCommand([this] { stepAll(kForward); });
}

void frmMedia::imgBack_Click()
{
    runGroupCommand([this] { stepAll(kBackward); });
}

void frmMedia::stepAll(Integer direction)
{
    if (SlideMode != "0" || VideoWindows.empty())
        return;
    expectForAll([&](const Alias& alias) { return stepCommand(alias, direction); });
    forEachSlot([&](frmChild& window) {
        MediaStep(window.MediaFile, Integer(window.Volume), direction);
        window.CurrPos = MediaGetPositionAlias(window.MediaFile);
        window.Paused = 1;
    });
    imgPauseAll.Tag = kHeld;
}

void frmMedia::imgPauseAll_Click()
{
    runGroupCommand([this] {
        if (SlideMode != "0" || VideoWindows.empty())
            return;
        if (imgPauseAll.Tag().empty())
            pauseAll();
        else
            resumeAll();
    });
}

void frmMedia::pauseAll()
{
    expectForAll(&pauseCommand);
    forEachSlot([](frmChild& window) {
        MediaPauseAlias(window.MediaFile);
        window.CurrPos = MediaGetPositionAlias(window.MediaFile);
        window.Paused = 1;
    });
    imgPauseAll.Tag = kHeld;
}

void frmMedia::resumeAll()
{
    forEachLive([](frmChild& window) {
        mciSend("Play " + window.MediaFile + " from " + text(window.CurrPos));
        window.Paused = 0;
    });
    imgPauseAll.Tag = "";
}

void frmMedia::imgResync_Click()
{
    runGroupCommand([this] {
        if (SlideMode == "0") {
            // Under the other mode the arrangement starts every video from its beginning.
            SlideMode = "1";
            trap([this] { Resize(true); });
            SlideMode = "0";
        }
        imgPauseAll.Tag = "";
    });
}

void frmMedia::imgMute_Click()
{
    const MediaKind kind = mediaKind();
    const bool mute = SavedVolume == 0;
    const Long level = mute ? Long(0) : SavedVolume;
    if (kind == MediaKind::Files)
        setVolumeOfGroup(level);
    if (mute)
        SavedVolume = VolumeSlider.Value;
    InvertSlider.Value = kLoudest - level;
    VolumeSlider.Value = level;
    if (!mute)
        SavedVolume = 0;
    if (kind == MediaKind::DiscOnPlayer)
        tellPlayer(otherMedia().dvd2, VolumeSlider.Value);
    else if (kind == MediaKind::Hd)
        tellPlayer(otherMedia().mkv, VolumeSlider.Value);
}

void frmMedia::setVolumeOfGroup(Long level)
{
    const auto set = [&](frmChild& window) {
        window.Volume = level;
        MediaSetVolumeAlias(window.MediaFile, level);
    };
    if (SlideMode != "1")
        forEachLive(set);
    else if (frmChild* window = firstSlot([](const frmChild& slot) { return trim(slot.MediaFile) == CurrentAlias; }))
        set(*window);
}

} // namespace tandrel

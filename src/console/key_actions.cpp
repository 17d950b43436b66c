#include "console/key_actions.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/remote_control.h"
#include "fullscreen/frm_panel.h"
#include "media/shared_state.h"
#include "texts/frm_keys.h"
#include "toolkit/trap.h"
#include "video/other_media.h"

#include <algorithm>

namespace tandrel
{

namespace
{

using std::chrono::microseconds;
using Kind = RemoteCommand::Kind;

constexpr double kLouderByKey = 0.1;
constexpr int kPagesOfMedium = 33;

} // namespace

bool fillsScreen()
{
    bool player = false;
    if (const auto* window = playerWindow())
        ignoringErrors([&] { player = controlOf(*window).fullScreen; });
    return FullScreenOn || player;
}

void playOrPause(int) { RemoteControl::atHand().carryOut({.kind = Kind::PlayPause}); }

void jumpByKey(int direction)
{
    RemoteControl control = RemoteControl::atHand();
    const RemoteState now = control.state();
    if (!now.canSeek)
        return;
    // What is held stays there, and at the end of one that plays the next one would begin.
    const microseconds place = now.position + direction * (now.length / kPagesOfMedium);
    if (direction > 0 && place >= now.length)
        return;
    control.carryOut({.kind = Kind::SetPosition, .time = std::max(place, microseconds(0)), .medium = now.medium});
}

void volumeByKey(int direction)
{
    class frmMedia& console = frmMedia();
    if (mediaKind() == MediaKind::Files)
        (direction > 0 ? console.imgMax : console.imgMin).userClick();
    else
        RemoteControl::atHand().carryOut(
            {.kind = Kind::Volume,
             .level = static_cast<double>(console.VolumeSlider.value()) / kLoudest + direction * kLouderByKey});
    if (Loaded<class frmPanel>())
        frmPanel().InvertSlider.Value = console.VolumeSlider.Value;
}

void goToNeighbour(int direction)
{
    if (mediaKind() == MediaKind::Files && frmMedia().mayBeginCommand())
        frmMedia().selectNeighbour(direction);
}

void bringForwardByKey(int number) { bringVideoForward(number - 1); }

void turnFullScreen(int) { frmMedia().chkFullscreen.userClick(); }

void leaveFullScreenByKey(int) { frmPanel().imgNoFull.userClick(); }

void listKeys(int) { frmKeys().Show(); }

} // namespace tandrel

#include "console/remote_control.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "fullscreen/frm_panel.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "platform/path_marks.h"
#include "toolkit/trap.h"
#include "video/other_media.h"
#include "video/selected_video.h"
#include "video/slots.h"
#include "video/video_window.h"

#include <algorithm>
#include <cmath>

namespace tandrel
{

namespace
{

using std::chrono::microseconds;
using Kind = RemoteCommand::Kind;
using Playback = RemoteState::Playback;

constexpr int kLooksForFile = 100;
constexpr std::size_t kMostWanted = 12;

double inSeconds(microseconds time) { return static_cast<double>(time.count()) / 1e6; }

/// What a stop by a key has switched off comes back.
void followAgain()
{
    class frmMedia& console = frmMedia();
    console.Timer1.Enabled = true;
    console.cmdMedia[command::kPause]->Enabled = true;
}

void showHold()
{
    if (Loaded<class frmPanel>())
        frmPanel().followHold();
}

void playFile()
{
    frmChild* window = selectedFile();
    const auto look = window ? services().mci->look(CurrentAlias) : std::nullopt;
    if (!look || (look->playing && !selectedJumps()))
        return;
    if (selectedJumps()) {
        FastForward = FastRewind = false;
        frmMedia().showSpeed("0x");
    } else if (look->ended) {
        MediaReplay();
    } else {
        mciSend("Play " + CurrentAlias + " ");
    }
    MediaSetVolume(frmMedia().VolumeSlider.Value);
    window->Paused = 0;
    Playing = true;
    MediaStarted = true;
    followAgain();
    showHold();
}

void pauseFile()
{
    const auto look = selectedFile() ? services().mci->look(CurrentAlias) : std::nullopt;
    if (!look || (!look->playing && !selectedJumps()))
        return;
    pauseSelected();
    Playing = false;
    showHold();
}

void moveFile(microseconds place, bool plays)
{
    class frmMedia& console = frmMedia();
    const Long ms = std::chrono::duration_cast<std::chrono::milliseconds>(place).count();
    console.SeekSlider.Value = ms;
    Long shown = ms;
    console.lblCurTime.Caption = FormatTime(shown);
    MediaSeek(ms, plays ? 0 : 1);
}

void openAll(const std::vector<Text>& paths)
{
    std::vector<Text> fresh;
    for (const Text& path : paths) {
        if (frmChild* window = slotPlaying(quoted(path)))
            window->SetFocus();
        else
            fresh.push_back(path);
    }
    if (!fresh.empty())
        frmMedia().openDropped(fresh);
}

} // namespace

bool RemoteControl::mayCarryOut() { return Loaded<class frmMedia>() && frmMedia().mayBeginCommand(); }

void RemoteControl::carryOut(const RemoteCommand& command)
{
    if (!mayCarryOut())
        return;
    frmMedia().run([&] {
        switch (command.kind) {
        case Kind::Play:
            return play();
        case Kind::Pause:
            return pause();
        case Kind::PlayPause:
            return state().playback == Playback::Playing ? pause() : play();
        case Kind::Stop:
            return stop();
        case Kind::Next:
            return next(1);
        case Kind::Previous:
            return next(-1);
        case Kind::Seek:
            return seek(command.time);
        case Kind::SetPosition:
            return setPosition(command.medium, command.time);
        case Kind::Volume:
            return setVolume(command.level);
        case Kind::Open:
            return lookFor(command.path);
        case Kind::OpenDisc:
            return frmMedia().OpenSingleVideoDVD();
        case Kind::Raise:
        case Kind::Quit:
            return;
        }
    });
}

void RemoteControl::play()
{
    looksAtEnd_ = 0;
    stopped_ = 0;
    if (!tellOtherMedia(Transport::Play))
        playFile();
}

void RemoteControl::pause()
{
    if (!tellOtherMedia(Transport::Pause))
        pauseFile();
}

void RemoteControl::stop()
{
    stopped_ = state().medium;
    if (auto* player = playerWindow()) {
        ignoringErrors([&] { controlOf(*player).controls().stop(); });
    } else if (mediaKind() == MediaKind::DiscOnVideoControl) {
        tellOtherMedia(Transport::Pause);
        seekOtherMedia(0);
    } else if (selectedFile()) {
        frmMedia().stopSelected();
        showHold();
    }
}

void RemoteControl::next(int direction)
{
    const bool forward = direction > 0;
    switch (mediaKind()) {
    case MediaKind::DiscOnVideoControl:
        return ignoringErrors([&] {
            WebDvd& disc = controlOf(otherMedia().dvd).InputActive();
            forward ? disc.PlayNextChapter() : disc.PlayPrevChapter();
        });
    case MediaKind::DiscOnPlayer:
        return ignoringErrors([&] {
            PlayerDvd& disc = controlOf(otherMedia().dvd2).dvd();
            forward ? disc.nextChapter() : disc.previousChapter();
        });
    case MediaKind::Hd:
        return;
    case MediaKind::Files:
        return frmMedia().selectNeighbour(direction);
    }
}

void RemoteControl::seek(microseconds offset)
{
    const RemoteState now = state();
    if (!now.canSeek)
        return;
    // As numbers of any size come in, none is added to another before it is known to be small.
    if (offset > now.length - now.position)
        return next(1);
    moveTo(now, offset < -now.position ? microseconds(0) : now.position + offset);
}

void RemoteControl::setPosition(std::uint64_t medium, microseconds place)
{
    const RemoteState now = state();
    if (now.canSeek && now.medium == medium && place >= microseconds(0) && place <= now.length)
        moveTo(now, place);
}

void RemoteControl::moveTo(const RemoteState& now, microseconds place)
{
    if (auto* player = playerWindow())
        ignoringErrors([&] { controlOf(*player).controls().setCurrentPosition(inSeconds(place)); });
    else if (mediaKind() == MediaKind::Files)
        moveFile(place, now.playback == Playback::Playing);
    else
        seekOtherMedia(Long(inSeconds(place)));
    moves_ += 1;
}

void RemoteControl::setVolume(double level)
{
    if (!std::isfinite(level))
        return;
    class frmMedia& console = frmMedia();
    console.InvertSlider.Value = kLoudest - static_cast<int>(std::lround(std::clamp(level, 0.0, 1.0) * kLoudest));
    console.InvertSlider.Scroll();
    if (Loaded<class frmPanel>())
        frmPanel().InvertSlider.Value = console.VolumeSlider.Value;
}

void RemoteControl::lookFor(const std::string& path)
{
    const Text marked = markPath(path);
    if (unmarkPath(marked) != path || wanted_.size() >= kMostWanted)
        return;
    services().finder->look({marked});
    wanted_.push_back({marked, kLooksForFile});
}

bool RemoteControl::openFound()
{
    if (!mayCarryOut())
        return !wanted_.empty();
    std::vector<Text> there;
    std::erase_if(wanted_, [&](Wanted& one) {
        const auto found = services().finder->found(one.path);
        if (found.value_or(false))
            there.push_back(one.path);
        return found || --one.looksLeft <= 0;
    });
    if (!there.empty())
        frmMedia().run([&] { openAll(there); });
    return !wanted_.empty();
}

bool RemoteControl::raise()
{
    const auto bringUp = [](Form& form) {
        form.ZOrder();
        form.SetFocus();
        return true;
    };
    if (!Loaded<class frmMedia>())
        return true;
    if (VideoWindow* full = fullWindow())
        return bringUp(*full);
    bool fills = false;
    if (auto* player = playerWindow())
        ignoringErrors([&] { fills = controlOf(*player).fullScreen; });
    return fills ? bringUp(*playerWindow()->form) : frmMedia().takeWhatWasLeft();
}

} // namespace tandrel

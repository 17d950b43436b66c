// What other programs see of the selected video.

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/remote_control.h"
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
using Playback = RemoteState::Playback;

// What was stopped stands so near its beginning.
constexpr microseconds kAtBeginning{50000};
// No medium is longer; what says so says nothing.
constexpr double kLongestSeconds = 1e9;
// What ends begins again, or hands over, within this many looks: nobody need hear of it.
constexpr int kLooksAtEnd = 8;

microseconds inTime(double seconds)
{
    return microseconds(std::llround(std::clamp(seconds, 0.0, kLongestSeconds) * 1e6));
}

/// Seconds of "HH:MM:SS:FF": the last are frames, of which a second has 25 or 30.
double secondsOfDisc(const Text& time)
{
    constexpr double kFrames = 30;
    const std::vector<Text> parts = split(time, ':');
    const auto part = [&](std::size_t index) { return index < parts.size() ? numberAtFront(parts[index]) : 0.0; };
    return part(0) * 3600 + part(1) * 60 + part(2) + part(3) / kFrames;
}

/// The key that stops has been pressed, and nothing since that would end that.
bool isStoppedByKey() { return !frmMedia().cmdMedia[command::kPause]->enabled(); }

} // namespace

RemoteControl RemoteControl::atHand()
{
    RemoteControl control;
    control.looksAtEnd_ = kLooksAtEnd;
    return control;
}

RemoteState RemoteControl::state()
{
    RemoteState state;
    if (!Loaded<class frmMedia>() || frmMedia().isEnding() || frmMedia().ClosingDown)
        return state;
    RemoteState read;
    const bool complete = trap([&] {
        switch (mediaKind()) {
        case MediaKind::DiscOnVideoControl:
            return readDisc(read);
        case MediaKind::DiscOnPlayer:
        case MediaKind::Hd:
            return readPlayer(read);
        case MediaKind::Files:
            return readFile(read);
        }
    });
    if (complete)
        state = read;
    state.volume = static_cast<double>(frmMedia().VolumeSlider.value()) / kLoudest;
    state.moves = moves_;
    return state;
}

std::uint64_t RemoteControl::idOf(Form& window, const Text& medium)
{
    std::erase_if(known_, [](const Known& one) { return one.window.expired(); });
    const auto own = window.shared_from_this();
    for (const Known& one : known_)
        if (one.medium == medium && one.window.lock() == own)
            return one.id;
    known_.push_back({own, medium, ++lastId_});
    return lastId_;
}

void RemoteControl::readFile(RemoteState& state)
{
    frmChild* window = selectedFile();
    const auto look = window ? services().mci->look(CurrentAlias) : std::nullopt;
    if (!look)
        return;
    state.medium = idOf(*window, CurrentAlias);
    state.path = unmarkPath(withoutQuotes(CurrentAlias));
    state.title = unmarkPath(fileNameOf(withoutQuotes(CurrentAlias)));
    state.length = inTime(look->length.value_or(0));
    state.position = inTime(look->place);
    const bool goesOn = goesOnAfterEnd(*look);
    state.playback = playbackOf(state, look->playing || selectedJumps() || goesOn);
    state.canSeek = state.length > microseconds(0);
    state.canGoNext = state.canGoPrevious = frmMedia().neighbourOfSelected(1) != nullptr;
}

RemoteState::Playback RemoteControl::playbackOf(const RemoteState& state, bool plays) const
{
    if (plays)
        return Playback::Playing;
    const bool stopped = stopped_ == state.medium || (mediaKind() == MediaKind::Files && isStoppedByKey());
    return stopped && state.position < kAtBeginning ? Playback::Stopped : Playback::Paused;
}

bool RemoteControl::goesOnAfterEnd(const DeviceLook& look)
{
    looksAtEnd_ = look.ended && !look.playing ? std::min(looksAtEnd_ + 1, kLooksAtEnd + 1) : 0;
    return looksAtEnd_ > 0 && looksAtEnd_ <= kLooksAtEnd;
}

void RemoteControl::readPlayer(RemoteState& state)
{
    const auto& window = *playerWindow();
    MediaPlayerControl& control = controlOf(window);
    const bool isDisc = mediaKind() == MediaKind::DiscOnPlayer;
    const Text address = control.URL;
    state.position = inTime(control.controls().currentPosition());
    state.length = inTime(control.currentMedia().duration());
    state.title = unmarkPath(frmMedia().mediaTitle());
    state.path = isDisc ? Text() : unmarkPath(address);
    state.canSeek = state.length > microseconds(0);
    state.canGoNext = state.canGoPrevious = isDisc;
    state.medium = idOf(*window.form, address);
    state.playback = playbackOf(state, !control.controls().standsStill());
}

void RemoteControl::readDisc(RemoteState& state)
{
    const auto& window = otherMedia().dvd;
    VideoControl& control = controlOf(window);
    WebDvd& disc = control.InputActive();
    state.position = inTime(secondsOfDisc(disc.CurrentTime()));
    state.length = inTime(secondsOfDisc(disc.TotalTitleTime()));
    state.title = unmarkPath(window.form->MediaFile);
    state.canSeek = state.length > microseconds(0);
    state.canGoNext = state.canGoPrevious = true;
    state.medium = idOf(*window.form, window.form->MediaFile);
    state.playback = playbackOf(state, !control.standsStill());
}

} // namespace tandrel

#include "platform/dbus/mpris_properties.h"

#include "platform/file_address.h"
#include "platform/valid_text.h"

#include <algorithm>
#include <charconv>

namespace tandrel::mpris
{

namespace
{

using namespace std::chrono_literals;

constexpr const char* kNoTrack = "/org/mpris/MediaPlayer2/TrackList/NoTrack";
constexpr std::string_view kTrackFront = "/tandrel_player/medium/";
// Places are told by media that count in frames and by discs that count in steps, and looked at now and then.
constexpr auto kUnexpected = 1s;

const char* nameOf(RemoteState::Playback playback)
{
    switch (playback) {
    case RemoteState::Playback::Playing:
        return "Playing";
    case RemoteState::Playback::Paused:
        return "Paused";
    case RemoteState::Playback::Stopped:
        break;
    }
    return "Stopped";
}

Metadata metadataOf(const RemoteState& state)
{
    Metadata data{{"mpris:trackid", ObjectPath{trackOf(state.medium)}}};
    if (state.medium == 0)
        return data;
    if (state.length > 0us)
        data.emplace_back("mpris:length", std::int64_t(state.length.count()));
    if (!state.title.empty())
        data.emplace_back("xesam:title", validText(state.title));
    if (!state.path.empty())
        data.emplace_back("xesam:url", fileAddressOf(state.path));
    return data;
}

/// Where it should stand at `now`.
std::chrono::microseconds expectedAt(const Reading& reading, Reading::Moment now)
{
    using std::chrono::microseconds;
    microseconds place = reading.state.position;
    if (reading.state.playback == RemoteState::Playback::Playing && now > reading.taken)
        place += std::chrono::duration_cast<microseconds>(now - reading.taken);
    return place;
}

} // namespace

Properties rootProperties(const Facts& facts)
{
    return {{"CanQuit", true},
            {"CanRaise", true},
            {"HasTrackList", false},
            {"Identity", facts.identity},
            {"DesktopEntry", facts.desktopEntry},
            {"SupportedUriSchemes", facts.schemes},
            {"SupportedMimeTypes", facts.mimeTypes}};
}

Properties playerProperties(const RemoteState& state)
{
    const bool loaded = state.medium != 0;
    return {{"PlaybackStatus", std::string(nameOf(state.playback))},
            {"Rate", 1.0},
            {"MinimumRate", 1.0},
            {"MaximumRate", 1.0},
            {"Metadata", metadataOf(state)},
            {"Volume", std::clamp(state.volume, 0.0, 1.0)},
            {"CanGoNext", state.canGoNext},
            {"CanGoPrevious", state.canGoPrevious},
            {"CanPlay", loaded},
            {"CanPause", loaded},
            {"CanSeek", loaded && state.canSeek},
            {"CanControl", true}};
}

Properties changedProperties(const Properties& before, const Properties& now)
{
    Properties changed;
    std::copy_if(now.begin(), now.end(), std::back_inserter(changed), [&](const Property& property) {
        return std::find(before.begin(), before.end(), property) == before.end();
    });
    return changed;
}

std::int64_t positionAt(const Reading& reading, Reading::Moment now)
{
    if (reading.state.medium == 0)
        return 0;
    const auto place = std::max(0us, expectedAt(reading, now));
    return (reading.state.length > 0us ? std::min(place, reading.state.length) : place).count();
}

bool isJump(const Reading& before, const Reading& now)
{
    if (now.state.medium == 0)
        return false;
    // A new medium is expected to begin at its beginning.
    if (now.state.medium != before.state.medium)
        return now.state.position > kUnexpected;
    const auto error = now.state.position - expectedAt(before, now.taken);
    return now.state.moves != before.state.moves || error > kUnexpected || error < -kUnexpected;
}

std::string trackOf(std::uint64_t medium)
{
    return medium == 0 ? kNoTrack : std::string(kTrackFront) + std::to_string(medium);
}

std::uint64_t mediumOf(std::string_view track)
{
    if (!track.starts_with(kTrackFront))
        return 0;
    track.remove_prefix(kTrackFront.size());
    std::uint64_t medium = 0;
    const auto [end, problem] = std::from_chars(track.data(), track.data() + track.size(), medium);
    return problem == std::errc() && end == track.data() + track.size() ? medium : 0;
}

} // namespace tandrel::mpris

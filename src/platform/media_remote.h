/// Other programs of the desktop that see what plays, and give it commands: media keys, panels, remote controls.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tandrel
{

/// What others may know of the selected video. Texts are any bytes.
struct RemoteState {
    enum class Playback { Stopped, Paused, Playing };

    Playback playback = Playback::Stopped;
    /// Tells one opening of a medium from all others; 0 where nothing is selected.
    std::uint64_t medium = 0;
    std::string title = {};
    /// Of a file, as the system knows it (unmarked); empty for a disc.
    std::string path = {};
    /// 0 while it is not known.
    std::chrono::microseconds length{0};
    std::chrono::microseconds position{0};
    /// 0 to 1.
    double volume = 0;
    bool canGoNext = false;
    bool canGoPrevious = false;
    bool canSeek = false;
    /// How many moves to another place others have asked for so far: each of them is news, however short.
    unsigned moves = 0;
    friend bool operator==(const RemoteState&, const RemoteState&) = default;
};

/// What another program wants.
struct RemoteCommand {
    enum class Kind {
        Play,
        Pause,
        PlayPause,
        Stop,
        Next,
        Previous,
        Seek,
        SetPosition,
        Volume,
        Open,
        OpenDisc,
        Raise,
        Quit
    };

    Kind kind = Kind::Play;
    /// `Seek`: so far from where it stands; `SetPosition`: from the beginning.
    std::chrono::microseconds time{0};
    /// `SetPosition`: the medium that it is meant for.
    std::uint64_t medium = 0;
    /// `Volume`: a number, of any size.
    double level = 0;
    /// `Open`: an absolute path, unmarked.
    std::string path = {};
    friend bool operator==(const RemoteCommand&, const RemoteCommand&) = default;
};

/// The way to those programs. Everything is called on the user-interface thread, and nothing waits.
class MediaRemote
{
public:
    virtual ~MediaRemote() = default;
    /// Somebody could be listening: without that nothing need be published.
    virtual bool isHeard() const = 0;
    virtual void publish(const RemoteState& state) = 0;
    /// The oldest command that waits.
    virtual std::optional<RemoteCommand> take() = 0;
    /// The same of those that wait for nothing: `Raise` and `Quit`.
    virtual std::optional<RemoteCommand> takeUrgent() = 0;
    /// Runs when commands have come in, and when `isHeard` has changed.
    std::function<void()> called;
};

} // namespace tandrel

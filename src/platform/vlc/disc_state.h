/// What a disc's player shows of itself to the user-interface thread.
#pragma once

#include "platform/players.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>

namespace tandrel
{

using SteadyTime = std::chrono::steady_clock::time_point;

inline double secondsBetween(SteadyTime begin, SteadyTime end)
{
    return std::chrono::duration<double>(end - begin).count();
}

/// A place in a film that goes on by itself.
struct RunningPlace {
    double seconds = 0;
    SteadyTime since;
    /// Seconds of the film in a second; 0 while it is held.
    double speed = 0;
    /// It begins to go on at `since`, and goes no further than this.
    double last = std::numeric_limits<double>::max();

    double at(SteadyTime now) const
    {
        return std::clamp(seconds + speed * std::max(secondsBetween(since, now), 0.0), 0.0, std::max(last, 0.0));
    }
};

struct DiscState {
    enum class Phase { Nothing, Opening, There, Failed };
    Phase phase = Phase::Nothing;
    MediaTrouble trouble = MediaTrouble::None;
    bool ended = false;
    bool paused = false;
    double rate = 1;
    bool inMenu = false;
    /// 0 in a menu.
    int title = 0;
    /// From 1 on.
    int chapter = 0;
    int chapterCount = 0;
    double duration = 0;
    double frameRate = 0;
    RunningPlace place;
    /// Counts the jumps: the place runs forwards between two of them.
    std::uint64_t jumps = 0;
    std::vector<MediaTrack> tracks;
};

} // namespace tandrel

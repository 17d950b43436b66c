/// The player of discs over libVLC.
#pragma once

#include "platform/players.h"

#include <chrono>
#include <functional>
#include <memory>

namespace tandrel
{

struct VlcOptions {
    /// False: neither picture nor sound come out anywhere, and windows are not even looked at; for tests.
    bool outputs = true;
    /// Device pixels to a logical pixel in this window; 1 where not set.
    std::function<double(WindowHandle)> pixelRatio;
    /// No command takes as long, unless libVLC hangs.
    std::chrono::seconds longestCommand{15};
    /// What hasn't begun to play after that time can't be played.
    std::chrono::seconds longestOpening{20};
    /// Called on the player's thread before libVLC is brought up, where it is set; for tests.
    std::function<void()> beforeBegin{};
};

/// All that libVLC has to be asked or told happens on a thread of the player's own, so no call here waits for it. The
/// player's end waits 2 s at most; should libVLC hang, its window goes from the screen, and what it holds is left
/// behind.
std::unique_ptr<DiscPlayer> makeVlcDiscPlayer(VlcOptions options);

} // namespace tandrel

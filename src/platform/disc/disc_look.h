/// What a disc says of itself before it is played.
#pragma once

#include "platform/players.h"

#include <chrono>
#include <string>
#include <vector>

namespace tandrel
{

struct DiscLook {
    enum class End {
        /// The disc has been read, or there was nothing to read.
        Read,
        /// What reads discs broke down over this one, or took too long. It is not to be played either.
        Died,
        TookTooLong
    };
    DiscFacts facts;
    /// How long a picture lies on the disc ahead of its time, in seconds; about as much all over the disc.
    double pictureLead = 0.3;
    /// The disc has a menu of its titles.
    bool hasTitleMenu = false;
    /// Of each title: what it belongs to has a root menu.
    std::vector<bool> hasRootMenu;
    End end = End::Read;
};

/// Looks at a device, an image, or a folder that holds a video disc or is its VIDEO_TS. `path` has no marks. May be
/// called on any thread, and blocks for `longest` at most. Nothing that is on the disc can harm the process: it is read
/// in a child process, which hands its facts over and goes.
DiscLook lookAtDiscFor(const std::string& path, std::chrono::milliseconds longest);

/// The facts alone, within 2 s.
DiscFacts lookAtDisc(const std::string& path);

} // namespace tandrel

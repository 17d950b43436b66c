/// The player of HD files over libmpv.
#pragma once

#include "platform/players.h"

#include <functional>
#include <memory>
#include <string>

namespace tandrel
{

struct FilmOptions {
    /// False: neither picture nor sound come out anywhere, and windows are not even looked at; for tests.
    bool outputs = true;
    /// Device pixels to a logical pixel in this window; 1 where not set.
    std::function<double(WindowHandle)> pixelRatio;
    /// The file of the settings for pictures and sounds, which each open looks at; empty: there is none.
    std::string codecFile = {};
};

/// One film at a time. To be called after the toolkit has set its own number format, as it sets that of the process to
/// the C locale's. The first call may look at the graphics card for some 100 ms. Its end waits 2 s at most for films
/// that are closing.
std::unique_ptr<FilePlayer> makeMpvFilePlayer(const FilmOptions& options);

} // namespace tandrel

/// The playback engine over libmpv.
#pragma once

#include "platform/mci/engine.h"
#include "platform/mpv/load_keeper.h"

#include <functional>
#include <memory>
#include <string>

namespace tandrel
{

struct MpvOptions {
    /// False: neither picture nor sound come out anywhere, and windows are not even looked at; for tests.
    bool outputs = true;
    /// Device pixels to a logical pixel in this window; 1 where not set.
    std::function<double(WindowHandle)> pixelRatio;
    /// Called from any thread when a device has to be looked at soon (MediaDevice::read); may be empty.
    std::function<void()> wake = {};
    /// How many devices the program opens at most: so many players are kept ready.
    int mostDevices = 12;
    /// Whether a graphics card may decode; found out where not set.
    std::optional<bool> hardwareDecoding = {};
    /// The file of the settings for pictures and sounds, which each open looks at; empty: there is none.
    std::string codecFile = {};
    /// Who says what becomes of videos that are too much; `LoadRules` where not set.
    LoadKeeper::Judge judgeLoad = {};
};

/// Sets the number format of the process to that of the C locale, which libmpv insists on: to be called after the
/// toolkit has set its own. The engine has to be destroyed before the windows that its devices are shown in.
std::unique_ptr<MediaEngine> makeMpvEngine(MpvOptions options);

} // namespace tandrel

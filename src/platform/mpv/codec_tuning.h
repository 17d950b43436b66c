/// The user's settings for pictures and sounds as libmpv understands them.
#pragma once

#include "platform/codec/codec_settings.h"

#include <mpv/client.h>
#include <string>
#include <vector>

namespace tandrel
{

/// What an output leaves to be done, and what it can do by itself.
struct TuningMeans {
    /// The renderer changes colours as it draws; elsewhere that takes a filter.
    bool rendererHasColours = false;
    /// Decoders of the graphics card may be used.
    bool hardwareDecoding = false;
};

struct CodecTuning {
    /// Commands for a handle that has no file yet, in their order; none where all is at its standard.
    std::vector<std::vector<std::string>> commands;
    /// Pictures are not those that a decoder makes.
    bool changesPicture = false;
    /// Filters are among the commands. One that this FFmpeg doesn't have is refused by libmpv, and the others stay; one
    /// that turns out to be unfit when the file is loaded takes the picture, or the sound, with it.
    bool hasFilters = false;
    /// Seconds of the medium in one second.
    double speed = 1;

    bool operator==(const CodecTuning&) const = default;
};

CodecTuning tuningOf(const CodecSettings& settings, const TuningMeans& means);

/// Sends the commands without waiting for any of them.
void applyTuning(mpv_handle* handle, const CodecTuning& tuning);

/// Takes all filters away again, of a handle whose load came to nothing because of them.
void dropFilters(mpv_handle* handle);

} // namespace tandrel

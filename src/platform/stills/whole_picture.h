/// A picture of a video in full.
#pragma once

#include "platform/services.h"

#include <functional>
#include <optional>
#include <string>

namespace tandrel
{

/// The picture of a video file that is shown at this place, in seconds from its first: in full size, upright and with
/// square pixels. `path` is the real one. May block as long as the file's disk does, and ends soon once `refuses` says
/// so. Empty where there is none.
std::optional<Still> readPicture(const std::string& path, double seconds, const std::function<bool()>& refuses);

} // namespace tandrel

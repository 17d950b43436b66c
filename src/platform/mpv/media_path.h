/// From the path in a command to a file that can be opened.
#pragma once

#include "platform/mci/engine.h"

#include <string>

namespace tandrel
{

struct MediaPath {
    /// Absolute, without marks; all other bytes as they came.
    std::string absolute;
    OpenFailure failure = OpenFailure::None;
};

/// Looks at the file without opening it: a pipe or a device is refused, and never waited for.
MediaPath findMedia(const std::string& markedPath);

} // namespace tandrel

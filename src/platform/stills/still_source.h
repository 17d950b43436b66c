/// The small picture of one file.
#pragma once

#include "platform/input/media_input.h"
#include "platform/services.h"

#include <functional>
#include <optional>
#include <string>

namespace tandrel
{

/// A picture from about a tenth of the length, or the first one of what is short or can't be sought; not a black one if
/// a later one isn't. Without pixels for sound alone; nothing where the file is no medium, or `refuses` came first.
/// `path` is a real path, the file has to be the one of `mark`. On any thread.
std::optional<Still> readStill(const std::string& path, const FileMark& mark, const std::function<bool()>& refuses);

} // namespace tandrel

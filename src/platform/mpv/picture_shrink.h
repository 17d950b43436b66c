/// Pictures that are decoded smaller than the file has them.
#pragma once

#include "platform/mpv/step_picture.h"

#include <string>

namespace tandrel
{

/// How often this codec's decoder can halve its pictures, width and height; 0 where it can't. `codec` is its name as
/// FFmpeg has it.
int mostHalvings(const std::string& codec);

/// How often a picture can be halved and still be nearly as large as `canvas`, at most `most` times. An eighth less is
/// hardly to be seen.
int halvingsFor(const PictureSize& picture, const PictureSize& canvas, int most);

} // namespace tandrel

/// What libmpv tells about a file it has loaded.
#pragma once

#include "platform/mci/engine.h"

#include <mpv/client.h>
#include <string>

namespace tandrel
{

struct MediaTracks {
    bool picture = false;
    bool sound = false;
    /// The file has something of the kind, played or not. A cover is no picture.
    bool hasPicture = false;
    bool hasSound = false;
    /// Display size, the aspect ratio and the rotation of the file applied.
    int width = 0;
    int height = 0;
    /// As the picture is coded, the rotation applied.
    int codedWidth = 0;
    int codedHeight = 0;
    /// False where the container does not tell the shape of the pixels: then it takes a decoded picture to know.
    bool sizeIsSure = false;
    double frameRate = 0;
    /// What the picture is coded by, as FFmpeg calls it.
    std::string codec;
};

/// Reads the property "track-list": the tracks that are being played, and what there is.
MediaTracks readTracks(const mpv_node& list);

/// Reads the display size of a decoded picture from the property "video-params".
void readPictureSize(const mpv_node& parameters, MediaTracks& tracks);

} // namespace tandrel

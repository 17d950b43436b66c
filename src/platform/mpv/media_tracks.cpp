#include "platform/mpv/media_tracks.h"

#include "platform/mpv/node_fields.h"

#include <cmath>
#include <utility>

namespace tandrel
{

namespace
{
void setSize(double width, double height, double pixelAspect, double rotation, MediaTracks& tracks)
{
    const bool turned = std::fmod(rotation, 180) == 90;
    tracks.codedWidth = static_cast<int>(turned ? height : width);
    tracks.codedHeight = static_cast<int>(turned ? width : height);
    // Pixels that are not square make the picture wider or higher, never smaller.
    if (pixelAspect > 1)
        width = std::floor(width * pixelAspect + 0.5);
    else if (pixelAspect > 0)
        height = std::floor(height / pixelAspect + 0.5);
    if (turned)
        std::swap(width, height);
    tracks.width = static_cast<int>(width);
    tracks.height = static_cast<int>(height);
}

void readPicture(const mpv_node& track, MediaTracks& tracks)
{
    tracks.picture = true;
    tracks.codec = textField(track, "codec");
    tracks.frameRate = numberField(track, "demux-fps", 0);
    setSize(numberField(track, "demux-w", 0), numberField(track, "demux-h", 0), numberField(track, "demux-par", 1),
            numberField(track, "demux-rotation", 0), tracks);
    tracks.sizeIsSure = tracks.width > 0 && tracks.height > 0 && nodeField(track, "demux-par") != nullptr;
}
} // namespace

MediaTracks readTracks(const mpv_node& list)
{
    MediaTracks tracks;
    if (list.format != MPV_FORMAT_NODE_ARRAY)
        return tracks;
    for (int index = 0; index < list.u.list->num; ++index) {
        const mpv_node& track = list.u.list->values[index];
        tracks.hasSound = tracks.hasSound || textField(track, "type") == "audio";
        tracks.hasPicture = tracks.hasPicture || (textField(track, "type") == "video" && !flagField(track, "albumart"));
        if (!flagField(track, "selected"))
            continue;
        if (textField(track, "type") == "video")
            readPicture(track, tracks);
        else if (textField(track, "type") == "audio")
            tracks.sound = true;
    }
    return tracks;
}

void readPictureSize(const mpv_node& parameters, MediaTracks& tracks)
{
    setSize(numberField(parameters, "w", 0), numberField(parameters, "h", 0), numberField(parameters, "par", 1),
            numberField(parameters, "rotate", 0), tracks);
}

} // namespace tandrel

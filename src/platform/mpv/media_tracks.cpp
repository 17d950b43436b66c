#include "platform/mpv/media_tracks.h"

#include <cmath>
#include <string_view>
#include <utility>

namespace tandrel
{

namespace
{
const mpv_node* field(const mpv_node& track, std::string_view name)
{
    if (track.format != MPV_FORMAT_NODE_MAP)
        return nullptr;
    for (int index = 0; index < track.u.list->num; ++index)
        if (track.u.list->keys[index] == name)
            return &track.u.list->values[index];
    return nullptr;
}

double number(const mpv_node& track, std::string_view name, double otherwise)
{
    const mpv_node* node = field(track, name);
    if (node != nullptr && node->format == MPV_FORMAT_INT64)
        return static_cast<double>(node->u.int64);
    if (node != nullptr && node->format == MPV_FORMAT_DOUBLE)
        return node->u.double_;
    return otherwise;
}

bool flag(const mpv_node& track, std::string_view name)
{
    const mpv_node* node = field(track, name);
    return node != nullptr && node->format == MPV_FORMAT_FLAG && node->u.flag != 0;
}

std::string_view text(const mpv_node& track, std::string_view name)
{
    const mpv_node* node = field(track, name);
    return node != nullptr && node->format == MPV_FORMAT_STRING ? node->u.string : "";
}

void setSize(double width, double height, double pixelAspect, double rotation, MediaTracks& tracks)
{
    // Pixels that are not square make the picture wider or higher, never smaller.
    if (pixelAspect > 1)
        width = std::floor(width * pixelAspect + 0.5);
    else if (pixelAspect > 0)
        height = std::floor(height / pixelAspect + 0.5);
    if (std::fmod(rotation, 180) == 90)
        std::swap(width, height);
    tracks.width = static_cast<int>(width);
    tracks.height = static_cast<int>(height);
}

void readPicture(const mpv_node& track, MediaTracks& tracks)
{
    tracks.picture = true;
    tracks.frameRate = number(track, "demux-fps", 0);
    setSize(number(track, "demux-w", 0), number(track, "demux-h", 0), number(track, "demux-par", 1),
            number(track, "demux-rotation", 0), tracks);
    tracks.sizeIsSure = tracks.width > 0 && tracks.height > 0 && field(track, "demux-par") != nullptr;
}
} // namespace

MediaTracks readTracks(const mpv_node& list)
{
    MediaTracks tracks;
    if (list.format != MPV_FORMAT_NODE_ARRAY)
        return tracks;
    for (int index = 0; index < list.u.list->num; ++index) {
        const mpv_node& track = list.u.list->values[index];
        if (!flag(track, "selected"))
            continue;
        if (text(track, "type") == "video")
            readPicture(track, tracks);
        else if (text(track, "type") == "audio")
            tracks.sound = true;
    }
    return tracks;
}

void readPictureSize(const mpv_node& parameters, MediaTracks& tracks)
{
    setSize(number(parameters, "w", 0), number(parameters, "h", 0), number(parameters, "par", 1),
            number(parameters, "rotate", 0), tracks);
}

} // namespace tandrel

// The sounds and subtitles of a disc.
#include "platform/vlc/vlc_film.h"

#include <algorithm>
#include <map>

namespace tandrel
{

namespace
{
/// By the number of the track.
std::map<int, std::string> codings(libvlc_media_player_t* player)
{
    std::map<int, std::string> result;
    libvlc_media_t* media = libvlc_media_player_get_media(player);
    if (media == nullptr)
        return result;
    libvlc_media_track_t** tracks = nullptr;
    const unsigned count = libvlc_media_tracks_get(media, &tracks);
    for (unsigned index = 0; index < count; ++index) {
        const char* coding = libvlc_media_get_codec_description(tracks[index]->i_type, tracks[index]->i_codec);
        result[tracks[index]->i_id] = coding == nullptr ? "" : coding;
    }
    libvlc_media_tracks_release(tracks, count);
    libvlc_media_release(media);
    return result;
}

void append(std::vector<MediaTrack>& list, MediaTrack::Kind kind, libvlc_track_description_t* first, int chosen,
            const std::map<int, std::string>& codings)
{
    for (const auto* track = first; track != nullptr; track = track->p_next) {
        if (kind == MediaTrack::Kind::Audio && track->i_id < 0)
            continue;
        MediaTrack one{kind, track->i_id, track->psz_name == nullptr ? "" : track->psz_name, track->i_id == chosen};
        const auto coding = codings.find(track->i_id);
        if (coding != codings.end() && !coding->second.empty())
            one.name += ", " + coding->second;
        list.push_back(one);
    }
    libvlc_track_description_list_release(first);
}

/// The captions for the deaf come within the pictures, and have codings of their own.
bool isCaption(std::uint32_t coding)
{
    constexpr auto code = [](const char(&name)[5]) {
        return static_cast<std::uint32_t>(name[0]) | static_cast<std::uint32_t>(name[1]) << 8 |
               static_cast<std::uint32_t>(name[2]) << 16 | static_cast<std::uint32_t>(name[3]) << 24;
    };
    return coding == code("c608") || coding == code("c708") || coding == code("cc1 ") || coding == code("cc2 ") ||
           coding == code("cc3 ") || coding == code("cc4 ");
}

/// The number of the first captions; below 0 where there are none.
int findCaptions(libvlc_media_player_t* player)
{
    libvlc_media_t* media = libvlc_media_player_get_media(player);
    if (media == nullptr)
        return -1;
    libvlc_media_track_t** tracks = nullptr;
    const unsigned count = libvlc_media_tracks_get(media, &tracks);
    int result = -1;
    for (unsigned index = 0; index < count && result < 0; ++index)
        if (isCaption(tracks[index]->i_codec) || isCaption(tracks[index]->i_original_fourcc))
            result = tracks[index]->i_id;
    libvlc_media_tracks_release(tracks, count);
    libvlc_media_release(media);
    return result;
}
} // namespace

std::vector<MediaTrack> VlcFilm::tracks() const
{
    std::vector<MediaTrack> list;
    const auto names = codings(player());
    append(list, MediaTrack::Kind::Audio, libvlc_audio_get_track_description(player()),
           libvlc_audio_get_track(player()), names);
    append(list, MediaTrack::Kind::Subtitle, libvlc_video_get_spu_description(player()), libvlc_video_get_spu(player()),
           names);
    return list;
}

void VlcFilm::chooseTrack(MediaTrack::Kind kind, int id)
{
    const auto list = tracks();
    const bool known =
        std::any_of(list.begin(), list.end(), [&](const MediaTrack& one) { return one.kind == kind && one.id == id; });
    if (!known)
        return;
    if (kind == MediaTrack::Kind::Audio)
        libvlc_audio_set_track(player(), id);
    else
        libvlc_video_set_spu(player(), id);
}

void VlcFilm::allowCaptions(bool on)
{
    const int captions = findCaptions(player());
    const int chosen = libvlc_video_get_spu(player());
    if (captions < 0)
        return;
    if (on && chosen < 0)
        libvlc_video_set_spu(player(), captions);
    else if (!on && chosen == captions)
        libvlc_video_set_spu(player(), -1);
}

} // namespace tandrel

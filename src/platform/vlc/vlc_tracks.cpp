// The sounds and subtitles of a disc.
#include "platform/vlc/vlc_film.h"

#include <algorithm>

namespace tandrel
{

namespace
{
/// What the last `count` tracks of a type are coded in: libVLC counts tracks and what can be chosen apart, and keeps
/// those of menus and titles that have been left.
std::vector<std::string> codings(libvlc_media_player_t* player, libvlc_track_type_t type, std::size_t count)
{
    std::vector<std::string> result;
    libvlc_media_t* media = libvlc_media_player_get_media(player);
    if (media == nullptr)
        return result;
    libvlc_media_track_t** tracks = nullptr;
    const unsigned known = libvlc_media_tracks_get(media, &tracks);
    for (unsigned index = 0; index < known; ++index) {
        if (tracks[index]->i_type != type)
            continue;
        const char* coding = libvlc_media_get_codec_description(type, tracks[index]->i_codec);
        result.emplace_back(coding == nullptr ? "" : coding);
    }
    libvlc_media_tracks_release(tracks, known);
    libvlc_media_release(media);
    if (result.size() < count)
        return {};
    result.erase(result.begin(), result.end() - static_cast<std::ptrdiff_t>(count));
    return result;
}

/// Those that can be chosen; takes the list over.
std::vector<MediaTrack> choices(MediaTrack::Kind kind, libvlc_track_description_t* first, int chosen)
{
    std::vector<MediaTrack> list;
    for (const auto* track = first; track != nullptr; track = track->p_next)
        if (kind == MediaTrack::Kind::Subtitle || track->i_id >= 0)
            list.push_back(
                {kind, track->i_id, track->psz_name == nullptr ? "" : track->psz_name, track->i_id == chosen});
    libvlc_track_description_list_release(first);
    return list;
}

void addCodings(std::vector<MediaTrack>& list, libvlc_media_player_t* player, libvlc_track_type_t type)
{
    const auto count = std::count_if(list.begin(), list.end(), [](const MediaTrack& one) { return one.id >= 0; });
    const auto names = codings(player, type, static_cast<std::size_t>(count));
    std::size_t index = 0;
    for (MediaTrack& track : list)
        if (track.id >= 0 && index < names.size() && !names[index++].empty())
            track.name += ", " + names[index - 1];
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
    auto list = choices(MediaTrack::Kind::Audio, libvlc_audio_get_track_description(player()),
                        libvlc_audio_get_track(player()));
    addCodings(list, player(), libvlc_track_audio);
    auto subtitles =
        choices(MediaTrack::Kind::Subtitle, libvlc_video_get_spu_description(player()), libvlc_video_get_spu(player()));
    addCodings(subtitles, player(), libvlc_track_text);
    list.insert(list.end(), subtitles.begin(), subtitles.end());
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

/// The tracks inside a film: what they are called, and which of them are played.
#pragma once

#include "platform/players.h"

#include <mpv/client.h>
#include <string>
#include <string_view>
#include <vector>

namespace tandrel
{

struct FilmTrack {
    enum class Kind { Picture, Audio, Subtitle };
    Kind kind = Kind::Picture;
    /// Counted from 1 within a kind.
    int id = 0;
    /// As in the file.
    std::string title = {};
    std::string language = {};
    /// libmpv's name of the coding; empty if it knows none.
    std::string codec = {};
    bool byDefault = false;
    bool forced = false;
    /// A decoder for it is installed.
    bool decodable = true;
    bool chosen = false;
};

/// Reads the property "track-list". Cover pictures are left out.
std::vector<FilmTrack> readFilmTracks(const mpv_node& list);

/// What plays if nobody chooses; below 0 for none.
struct TrackChoice {
    int picture = -1;
    int audio = -1;
    int subtitle = -1;
};

/// The sound in this language (two letters, may be empty), else the one that the file prefers. Subtitles in the
/// language where the sound is in another one; where it is in it, those alone that belong to such sound.
TrackChoice chooseTracks(const std::vector<FilmTrack>& tracks, std::string_view language);

/// CodecMissing if there are pictures that cannot be decoded, or sounds alone that cannot be; NotPlayable if there is
/// nothing to play at all.
MediaTrouble troubleOf(const std::vector<FilmTrack>& tracks);

/// Sounds, then subtitles, with an entry without a name for none of them. Names are like "Director (eng, AC-3)".
std::vector<MediaTrack> nameTracks(const std::vector<FilmTrack>& tracks);

} // namespace tandrel

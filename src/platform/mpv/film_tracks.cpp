#include "platform/mpv/film_tracks.h"

#include "platform/languages.h"
#include "platform/mpv/node_fields.h"
#include "platform/valid_text.h"

#include <algorithm>
#include <cctype>
#include <optional>

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace tandrel
{

namespace
{
using Kind = FilmTrack::Kind;

struct CodecName {
    std::string_view codec;
    std::string_view shown;
};
constexpr CodecName kCodecNames[]{
    {"ac3", "AC-3"},      {"eac3", "E-AC-3"},         {"mp3", "MP3"},
    {"opus", "Opus"},     {"vorbis", "Vorbis"},       {"truehd", "TrueHD"},
    {"subrip", "SRT"},    {"webvtt", "WebVTT"},       {"hdmv_pgs_subtitle", "PGS"},
    {"mov_text", "Text"}, {"dvd_subtitle", "VobSub"}, {"dvb_subtitle", "DVB"},
};

bool hasDecoder(const std::string& codec)
{
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get_by_name(codec.c_str());
    if (descriptor != nullptr)
        return avcodec_find_decoder(descriptor->id) != nullptr;
    return avcodec_find_decoder_by_name(codec.c_str()) != nullptr;
}

std::optional<Kind> kindOf(std::string_view type)
{
    if (type == "video")
        return Kind::Picture;
    if (type == "audio")
        return Kind::Audio;
    if (type == "sub")
        return Kind::Subtitle;
    return {};
}

std::string shownCodec(const std::string& codec)
{
    for (const CodecName& name : kCodecNames)
        if (name.codec == codec)
            return std::string(name.shown);
    std::string shown = validText(codec);
    for (char& letter : shown)
        letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    return shown;
}

std::string nameOf(const FilmTrack& track)
{
    const std::string language = validText(track.language);
    const std::string codec = shownCodec(track.codec);
    const std::string title = track.title.empty() ? std::to_string(track.id) : validText(track.title);
    const std::string facts = language + (language.empty() || codec.empty() ? "" : ", ") + codec;
    return facts.empty() ? title : title + " (" + facts + ")";
}

/// The track of a kind with the highest rank, the first of several; null if all rank below 0.
template <class Rank>
const FilmTrack* best(const std::vector<FilmTrack>& tracks, Kind kind, Rank rank)
{
    const FilmTrack* found = nullptr;
    int highest = -1;
    for (const FilmTrack& track : tracks) {
        if (track.kind != kind || rank(track) <= highest)
            continue;
        found = &track;
        highest = rank(track);
    }
    return found;
}
} // namespace

std::vector<FilmTrack> readFilmTracks(const mpv_node& list)
{
    std::vector<FilmTrack> tracks;
    if (list.format != MPV_FORMAT_NODE_ARRAY)
        return tracks;
    for (int index = 0; index < list.u.list->num; ++index) {
        const mpv_node& node = list.u.list->values[index];
        const auto kind = kindOf(textField(node, "type"));
        if (!kind || flagField(node, "albumart"))
            continue;
        FilmTrack track;
        track.kind = *kind;
        track.id = static_cast<int>(numberField(node, "id", 0));
        track.title = textField(node, "title");
        track.language = textField(node, "lang");
        track.codec = textField(node, "codec");
        track.byDefault = flagField(node, "default");
        track.forced = flagField(node, "forced");
        track.decodable = hasDecoder(track.codec);
        track.chosen = flagField(node, "selected");
        tracks.push_back(std::move(track));
    }
    return tracks;
}

TrackChoice chooseTracks(const std::vector<FilmTrack>& tracks, std::string_view language)
{
    // One that can't be decoded would keep the sound from playing.
    const FilmTrack* picture =
        best(tracks, Kind::Picture, [](const FilmTrack& track) { return track.decodable ? int(track.byDefault) : -1; });
    const FilmTrack* audio = best(tracks, Kind::Audio, [&](const FilmTrack& track) {
        return 4 * track.decodable + 2 * isLanguage(track.language, language) + track.byDefault;
    });
    const bool understood = audio != nullptr && isLanguage(audio->language, language);
    const FilmTrack* subtitle = best(tracks, Kind::Subtitle, [&](const FilmTrack& track) {
        const bool readable = isLanguage(track.language, language);
        if (!track.decodable || (understood && !(readable && track.forced)))
            return -1;
        if (readable)
            return understood ? 1 : 4 + 2 * !track.forced + track.byDefault;
        return track.byDefault || track.forced ? 1 + track.byDefault : -1;
    });
    const auto idOf = [](const FilmTrack* track) { return track == nullptr ? -1 : track->id; };
    return {idOf(picture), idOf(audio), idOf(subtitle)};
}

MediaTrouble troubleOf(const std::vector<FilmTrack>& tracks)
{
    for (const Kind kind : {Kind::Picture, Kind::Audio}) {
        const auto isKind = [&](const FilmTrack& track) { return track.kind == kind; };
        if (std::none_of(tracks.begin(), tracks.end(), isKind))
            continue;
        const bool some = std::any_of(tracks.begin(), tracks.end(),
                                      [&](const FilmTrack& track) { return isKind(track) && track.decodable; });
        return some ? MediaTrouble::None : MediaTrouble::CodecMissing;
    }
    return MediaTrouble::NotPlayable;
}

std::vector<MediaTrack> nameTracks(const std::vector<FilmTrack>& tracks)
{
    std::vector<MediaTrack> named;
    for (const FilmTrack& track : tracks)
        if (track.kind == Kind::Audio)
            named.push_back({MediaTrack::Kind::Audio, track.id, nameOf(track), track.chosen});
    const std::size_t sounds = named.size();
    bool noneChosen = true;
    for (const FilmTrack& track : tracks)
        if (track.kind == Kind::Subtitle) {
            named.push_back({MediaTrack::Kind::Subtitle, track.id, nameOf(track), track.chosen});
            noneChosen = noneChosen && !track.chosen;
        }
    if (named.size() > sounds)
        named.insert(named.begin() + static_cast<std::ptrdiff_t>(sounds),
                     {MediaTrack::Kind::Subtitle, -1, "", noneChosen});
    return named;
}

} // namespace tandrel

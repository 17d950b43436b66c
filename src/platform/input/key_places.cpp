#include "platform/input/key_places.h"

#include "platform/input/av_handles.h"
#include "platform/input/media_input.h"

#include <algorithm>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
}

namespace tandrel
{

namespace
{

// Those with a list of their key pictures, which is read when the file is opened or sought.
constexpr const char* kFormats = "mov,mp4,m4a,3gp,3g2,mj2,matroska,webm,avi,flv,asf";
// What is read to know the order of pictures.
constexpr std::int64_t kProbeBytes = 2 * 1024 * 1024;

AvFormat formatIn(const std::string& path, MediaInput& input)
{
    AVFormatContext* format = input.context() == nullptr ? nullptr : avformat_alloc_context();
    if (format == nullptr)
        return nullptr;
    format->pb = input.context();
    format->flags |= AVFMT_FLAG_CUSTOM_IO;
    format->probesize = kProbeBytes;
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", "none", 0);
    av_dict_set(&options, "format_whitelist", kFormats, 0);
    const int opened = avformat_open_input(&format, path.c_str(), nullptr, &options);
    av_dict_free(&options);
    return AvFormat(opened < 0 ? nullptr : format);
}

AVStream* videoOf(AVFormatContext& format)
{
    const int number = av_find_best_stream(&format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    return number < 0 ? nullptr : format.streams[number];
}

std::vector<double> listOf(AVStream& stream)
{
    std::vector<double> seconds;
    const double unit = av_q2d(stream.time_base);
    std::int64_t first = 0;
    for (int index = 0; index < avformat_index_get_entries_count(&stream); ++index) {
        const AVIndexEntry& entry = *avformat_index_get_entry(&stream, index);
        if (index == 0)
            first = entry.timestamp;
        if ((entry.flags & AVINDEX_KEYFRAME) != 0)
            seconds.push_back(static_cast<double>(entry.timestamp - first) * unit);
    }
    return seconds;
}

} // namespace

KeyPlaces readKeyPlaces(const std::string& path, const std::function<bool()>& refuses)
{
    MediaInput input(path, markOf(path), refuses);
    const AvFormat format = formatIn(path, input);
    if (format == nullptr || avformat_find_stream_info(format.get(), nullptr) < 0)
        return {};
    AVStream* stream = videoOf(*format);
    if (stream == nullptr)
        return {};
    KeyPlaces places;
    places.inOrder = stream->codecpar->video_delay == 0;
    // Some formats look for their list at the first seek. That it may fail is no matter.
    av_seek_frame(format.get(), stream->index, stream->duration > 0 ? stream->duration / 2 : 0, AVSEEK_FLAG_BACKWARD);
    places.seconds = listOf(*stream);
    return places;
}

} // namespace tandrel

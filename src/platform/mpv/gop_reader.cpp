#include "platform/mpv/gop_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

namespace tandrel
{

namespace
{
// Containers whose time stamps the player takes as they are. Of others it makes up some.
constexpr const char* kFormats = "mov,mp4,m4a,3gp,3g2,mj2,matroska,webm,flv,mpegts,mpeg";
constexpr std::array kCodecs{AV_CODEC_ID_H264,  AV_CODEC_ID_HEVC, AV_CODEC_ID_MPEG1VIDEO, AV_CODEC_ID_MPEG2VIDEO,
                             AV_CODEC_ID_MPEG4, AV_CODEC_ID_VP8,  AV_CODEC_ID_VP9,        AV_CODEC_ID_AV1};
constexpr std::array kPixelFormats{AV_PIX_FMT_YUV420P,  AV_PIX_FMT_YUV422P,  AV_PIX_FMT_YUV444P,
                                   AV_PIX_FMT_YUVJ420P, AV_PIX_FMT_YUVJ422P, AV_PIX_FMT_YUVJ444P};
// Larger ones take too much memory in a decoder alone.
constexpr std::int64_t kMostPixels = 4096LL * 2304;
// Until the next picture comes, or whatever else is asked for. Nobody waits for longer.
constexpr auto kLongestPicture = std::chrono::seconds(5);
constexpr int kNoVideo = AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS | AV_DISPOSITION_STILL_IMAGE;

template <typename List, typename Value>
bool contains(const List& list, Value value)
{
    return std::find(list.begin(), list.end(), value) != list.end();
}

bool isFullRange(const AVFrame& frame)
{
    constexpr std::array full{AV_PIX_FMT_YUVJ420P, AV_PIX_FMT_YUVJ422P, AV_PIX_FMT_YUVJ444P};
    return frame.color_range == AVCOL_RANGE_JPEG || contains(full, frame.format);
}

/// The player's own rules: what is not told goes by the size. Empty for what it may see otherwise.
std::optional<int> matrixOf(const AVFrame& frame)
{
    switch (frame.colorspace) {
    case AVCOL_SPC_UNSPECIFIED:
        return frame.width >= 1280 || frame.height > 576 ? SWS_CS_ITU709 : SWS_CS_ITU601;
    case AVCOL_SPC_BT709:
        return SWS_CS_ITU709;
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_SMPTE170M:
        return SWS_CS_ITU601;
    default:
        return {};
    }
}
} // namespace

int GopReader::refuses(void* self) { return static_cast<const GopReader*>(self)->mustEnd() ? 1 : 0; }

void GopReader::beginLimit() { limit_ = std::chrono::steady_clock::now() + kLongestPicture; }

GopReader::GopReader(const MediaSource& source, const std::atomic<bool>& cancelled, int threads)
    : source_(source), cancelled_(cancelled), threads_(threads)
{
}

GopReader::~GopReader() = default;

bool GopReader::open()
{
    frame_.reset(av_frame_alloc());
    packet_.reset(av_packet_alloc());
    beginLimit();
    return frame_ != nullptr && packet_ != nullptr && openFormat() && openDecoder();
}

bool GopReader::openFormat()
{
    input_ = std::make_unique<MediaInput>(source_.path, source_.mark, [this] { return mustEnd(); });
    AVFormatContext* format = input_->context() == nullptr ? nullptr : avformat_alloc_context();
    if (format == nullptr)
        return false;
    format->pb = input_->context();
    format->flags |= AVFMT_FLAG_CUSTOM_IO;
    format->interrupt_callback = {&GopReader::refuses, this};
    AVDictionary* options = nullptr;
    // No further files, as for the player.
    av_dict_set(&options, "protocol_whitelist", "none", 0);
    av_dict_set(&options, "format_whitelist", kFormats, 0);
    const int opened = avformat_open_input(&format, source_.path.c_str(), nullptr, &options);
    av_dict_free(&options);
    if (opened < 0)
        return false;
    format_.reset(format);
    if (avformat_find_stream_info(format, nullptr) < 0)
        return false;
    start_ = format->start_time == AV_NOPTS_VALUE ? 0 : static_cast<double>(format->start_time) / AV_TIME_BASE;
    stream_ = chooseStream();
    return stream_ != nullptr;
}

AVStream* GopReader::chooseStream() const
{
    AVStream* chosen = nullptr;
    for (unsigned index = 0; index < format_->nb_streams; ++index) {
        AVStream* stream = format_->streams[index];
        stream->discard = AVDISCARD_ALL;
        if (stream->codecpar->codec_type != AVMEDIA_TYPE_VIDEO || (stream->disposition & AV_DISPOSITION_ATTACHED_PIC))
            continue;
        // Of several the player may have chosen another one.
        if (chosen != nullptr || (stream->disposition & kNoVideo) != 0)
            return nullptr;
        chosen = stream;
    }
    if (chosen == nullptr || av_stream_get_side_data(chosen, AV_PKT_DATA_DISPLAYMATRIX, nullptr) != nullptr)
        return nullptr;
    chosen->discard = AVDISCARD_DEFAULT;
    return chosen;
}

bool GopReader::openDecoder()
{
    const AVCodecParameters& facts = *stream_->codecpar;
    const AVCodec* codec = contains(kCodecs, facts.codec_id) ? avcodec_find_decoder(facts.codec_id) : nullptr;
    if (codec == nullptr || static_cast<std::int64_t>(facts.width) * facts.height > kMostPixels)
        return false;
    decoder_.reset(avcodec_alloc_context3(codec));
    if (decoder_ == nullptr || avcodec_parameters_to_context(decoder_.get(), &facts) < 0)
        return false;
    decoder_->pkt_timebase = stream_->time_base;
    decoder_->max_pixels = kMostPixels;
    decoder_->thread_count = threads_;
    return avcodec_open2(decoder_.get(), codec, nullptr) >= 0;
}

bool GopReader::seek(double seconds)
{
    const double stamp = std::floor((seconds + start_) / av_q2d(stream_->time_base));
    if (std::abs(stamp) > 9e15)
        return false;
    beginLimit();
    avcodec_flush_buffers(decoder_.get());
    began_.reset();
    draining_ = false;
    return av_seek_frame(format_.get(), stream_->index, static_cast<std::int64_t>(stamp), AVSEEK_FLAG_BACKWARD) >= 0;
}

std::optional<double> GopReader::keyFrameBefore(double seconds) const
{
    const double stamp = std::floor((seconds + start_) / av_q2d(stream_->time_base));
    if (std::abs(stamp) > 9e15)
        return {};
    const AVIndexEntry* entry =
        avformat_index_get_entry_from_timestamp(stream_, static_cast<std::int64_t>(stamp), AVSEEK_FLAG_BACKWARD);
    if (entry == nullptr)
        return {};
    return static_cast<double>(entry->timestamp) * av_q2d(stream_->time_base) - start_;
}

void GopReader::skimWhile(bool skim) { decoder_->skip_frame = skim ? AVDISCARD_NONREF : AVDISCARD_DEFAULT; }

GopReader::Result GopReader::next()
{
    beginLimit();
    while (!mustEnd()) {
        const int got = avcodec_receive_frame(decoder_.get(), frame_.get());
        if (got == AVERROR_EOF)
            return Result::End;
        if (got == AVERROR(EAGAIN)) {
            if (!feed())
                return Result::Doubtful;
        } else if (got < 0) {
            return Result::Doubtful;
        } else if (const auto result = judge()) {
            return *result;
        }
    }
    return Result::Doubtful;
}

bool GopReader::feed()
{
    av_packet_unref(packet_.get());
    const int read = av_read_frame(format_.get(), packet_.get());
    if (read == AVERROR_EOF && !draining_) {
        draining_ = true;
        return avcodec_send_packet(decoder_.get(), nullptr) >= 0;
    }
    if (read < 0)
        return false;
    if (packet_->stream_index != stream_->index)
        return true;
    if ((packet_->flags & (AV_PKT_FLAG_DISCARD | AV_PKT_FLAG_CORRUPT)) != 0)
        return false;
    return avcodec_send_packet(decoder_.get(), packet_.get()) >= 0;
}

std::optional<GopReader::Result> GopReader::judge()
{
    if (frame_->pts == AV_NOPTS_VALUE)
        return Result::Doubtful;
    const double time = static_cast<double>(frame_->pts) * av_q2d(stream_->time_base) - start_;
    if (!began_) {
        // What is decoded before the first key frame lacks what it refers to.
        if (frame_->key_frame == 0)
            return {};
        began_ = time;
    } else if (time < *began_) {
        return {};
    } else if (time <= time_) {
        return Result::Doubtful;
    }
    time_ = time;
    if (frame_->decode_error_flags != 0 || (frame_->flags & (AV_FRAME_FLAG_CORRUPT | AV_FRAME_FLAG_DISCARD)) != 0)
        return Result::Doubtful;
    if (av_frame_get_side_data(frame_.get(), AV_FRAME_DATA_DISPLAYMATRIX) != nullptr)
        return Result::Doubtful;
    return isPlain() ? Result::Picture : Result::Doubtful;
}

bool GopReader::isPlain()
{
    const auto matrix = matrixOf(*frame_);
    if (!matrix || !contains(kPixelFormats, frame_->format) || frame_->color_trc == AVCOL_TRC_SMPTE2084 ||
        frame_->color_trc == AVCOL_TRC_ARIB_STD_B67)
        return false;
    PictureColours colours{*matrix, isFullRange(*frame_)};
    const auto told = frame_->chroma_location;
    const auto usual = colours.fullRange ? AVCHROMA_LOC_CENTER : AVCHROMA_LOC_LEFT;
    avcodec_enum_to_chroma_pos(&colours.colourX, &colours.colourY, told == AVCHROMA_LOC_UNSPECIFIED ? usual : told);
    if (!colours_) {
        colours_ = colours;
        width_ = frame_->width;
        height_ = frame_->height;
        pixelFormat_ = frame_->format;
    }
    return colours == *colours_ && frame_->width == width_ && frame_->height == height_ &&
           frame_->format == pixelFormat_;
}

} // namespace tandrel

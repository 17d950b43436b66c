#include "platform/stills/picture_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/display.h>
}

namespace tandrel
{

namespace
{
// Files that hold their pictures themselves: no lists, which would lead to other files.
constexpr const char* kFormats =
    "mov,mp4,m4a,3gp,3g2,mj2,matroska,webm,flv,mpegts,mpeg,mpegvideo,avi,asf,ogg,rm,dv,ivf,mxf,nut,"
    "wtv,h264,hevc,m4v,mp3,wav,flac,aac,ac3";
constexpr int kLongestEdge = 8192;
constexpr std::int64_t kMostPixels = 8192LL * 4320;
// A key frame this much of the way before the place will do: decoding on would only cost time.
constexpr double kNearEnough = 0.5;
// Places are told in whole milliseconds, and so are the times of pictures in some files.
constexpr double kSameMoment = 0.0015;
// How far before a place a seek begins, from one try to the next: in some files the index leads behind it.
constexpr std::array kMargins{0.0, 1.0, 4.0, 16.0};
constexpr int kNoVideo = AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS;
} // namespace

int PictureReader::interrupts(void* self) { return static_cast<const PictureReader*>(self)->mustEnd() ? 1 : 0; }

PictureReader::PictureReader(const std::string& path, const FileMark& mark, std::function<bool()> refuses,
                             const PictureLimits& limits)
    : path_(path), mark_(mark), refuses_(std::move(refuses)), limits_(limits)
{
}

PictureReader::~PictureReader() = default;

bool PictureReader::mustEnd() const { return refuses_() || (input_ != nullptr && input_->bytesRead() > limits_.bytes); }

bool PictureReader::open()
{
    frame_.reset(av_frame_alloc());
    shown_.reset(av_frame_alloc());
    packet_.reset(av_packet_alloc());
    if (frame_ == nullptr || shown_ == nullptr || packet_ == nullptr || !openFormat())
        return false;
    chooseStream();
    return true;
}

bool PictureReader::openFormat()
{
    input_ = std::make_unique<MediaInput>(path_, mark_, [this] { return mustEnd(); });
    AVFormatContext* format = input_->context() == nullptr ? nullptr : avformat_alloc_context();
    if (format == nullptr)
        return false;
    format->pb = input_->context();
    format->flags |= AVFMT_FLAG_CUSTOM_IO;
    format->interrupt_callback = {&PictureReader::interrupts, this};
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", "none", 0);
    av_dict_set(&options, "format_whitelist", kFormats, 0);
    const int opened = avformat_open_input(&format, path_.c_str(), nullptr, &options);
    av_dict_free(&options);
    if (opened < 0)
        return false;
    format_.reset(format);
    return avformat_find_stream_info(format, nullptr) >= 0 && format->nb_streams > 0;
}

void PictureReader::chooseStream()
{
    const int best = av_find_best_stream(format_.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    for (unsigned index = 0; index < format_->nb_streams; ++index)
        format_->streams[index]->discard = static_cast<int>(index) == best ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    // The cover of a record is no video.
    if (best >= 0 && (format_->streams[best]->disposition & kNoVideo) == 0)
        stream_ = format_->streams[best];
}

std::optional<std::int64_t> PictureReader::lengthMs() const
{
    // What is guessed from the rate of bits may be far off.
    if (format_->duration == AV_NOPTS_VALUE || format_->duration <= 0 ||
        (stream_ != nullptr && format_->duration_estimation_method == AVFMT_DURATION_FROM_BITRATE))
        return {};
    return format_->duration / (AV_TIME_BASE / 1000);
}

bool PictureReader::openDecoder()
{
    const AVCodecParameters& facts = *stream_->codecpar;
    const AVCodec* codec = avcodec_find_decoder(facts.codec_id);
    if (codec == nullptr || (codec->capabilities & AV_CODEC_CAP_HARDWARE) != 0 || facts.width > kLongestEdge ||
        facts.height > kLongestEdge)
        return false;
    decoder_.reset(avcodec_alloc_context3(codec));
    if (decoder_ == nullptr)
        return false;
    // Facts that don't fit show when it is opened.
    avcodec_parameters_to_context(decoder_.get(), &facts);
    decoder_->pkt_timebase = stream_->time_base;
    decoder_->max_pixels = kMostPixels;
    decoder_->thread_count = 1;
    if (limits_.quick) {
        decoder_->skip_frame = AVDISCARD_NONREF;
        decoder_->skip_loop_filter = AVDISCARD_ALL;
    }
    if (avcodec_open2(decoder_.get(), codec, nullptr) >= 0)
        return true;
    // One that isn't open must not be asked for anything.
    decoder_.reset();
    return false;
}

bool PictureReader::seek(double seconds)
{
    packetsLeft_ = limits_.packets;
    draining_ = false;
    if (seconds <= 0)
        return true;
    const auto start =
        format_->start_time == AV_NOPTS_VALUE ? 0.0 : static_cast<double>(format_->start_time) / AV_TIME_BASE;
    const double stamp = std::floor((seconds + start) * AV_TIME_BASE);
    if (!(std::abs(stamp) < 9e15))
        return false;
    avcodec_flush_buffers(decoder_.get());
    return av_seek_frame(format_.get(), -1, static_cast<std::int64_t>(stamp), AVSEEK_FLAG_BACKWARD) >= 0;
}

bool PictureReader::seekToBeginning()
{
    packetsLeft_ = limits_.packets;
    draining_ = false;
    avcodec_flush_buffers(decoder_.get());
    // Where times may begin anew on the way, they are looked for and not always found.
    const bool byBytes = (format_->iformat->flags & (AVFMT_TS_DISCONT | AVFMT_NO_BYTE_SEEK)) == AVFMT_TS_DISCONT;
    if (byBytes)
        return av_seek_frame(format_.get(), -1, 0, AVSEEK_FLAG_BYTE) >= 0;
    const std::int64_t start = format_->start_time == AV_NOPTS_VALUE ? 0 : format_->start_time;
    return av_seek_frame(format_.get(), -1, start, AVSEEK_FLAG_BACKWARD) >= 0;
}

bool PictureReader::read(double seconds)
{
    if (stream_ == nullptr || (decoder_ == nullptr && !openDecoder()))
        return false;
    // What can't be sought is read from where it stands.
    const double wanted = seek(seconds) ? seconds : 0;
    av_frame_unref(shown_.get());
    while (nextFrame()) {
        std::swap(frame_, shown_);
        const auto place = placeOf(*shown_);
        if (!place || *place >= wanted * kNearEnough)
            break;
    }
    return shown_->width > 0 && shown_->height > 0;
}

bool PictureReader::nextFrame()
{
    while (!mustEnd()) {
        const int got = avcodec_receive_frame(decoder_.get(), frame_.get());
        if (got >= 0)
            return frame_->width <= kLongestEdge && frame_->height <= kLongestEdge;
        if (got != AVERROR(EAGAIN) || !feed())
            return false;
    }
    return false;
}

double PictureReader::firstPlace() const
{
    const auto start =
        format_->start_time == AV_NOPTS_VALUE ? 0.0 : static_cast<double>(format_->start_time) / AV_TIME_BASE;
    return stream_->start_time == AV_NOPTS_VALUE
               ? 0
               : static_cast<double>(stream_->start_time) * av_q2d(stream_->time_base) - start;
}

bool PictureReader::readExactly(double seconds)
{
    if (stream_ == nullptr || (decoder_ == nullptr && !openDecoder()))
        return false;
    const double place = seconds + firstPlace() + kSameMoment;
    return std::any_of(kMargins.begin(), kMargins.end(), [&](double margin) { return tryExactly(place, margin); });
}

bool PictureReader::tryExactly(double seconds, double margin)
{
    const double from = seconds - margin;
    if (!(from > 0 ? seek(from) : seekToBeginning()))
        return false;
    av_frame_unref(shown_.get());
    while (nextFrame()) {
        const auto place = placeOf(*frame_);
        const bool later = place && *place > seconds;
        // At the beginning there is none before.
        if (later && (shown_->width > 0 || from > 0))
            break;
        std::swap(frame_, shown_);
        if (later)
            break;
    }
    return shown_->width > 0 && shown_->height > 0;
}

bool PictureReader::feed()
{
    while (packetsLeft_ > 0 && !draining_) {
        av_packet_unref(packet_.get());
        const int result = av_read_frame(format_.get(), packet_.get());
        if (result == AVERROR_EOF) {
            draining_ = true;
            return avcodec_send_packet(decoder_.get(), nullptr) >= 0;
        }
        if (result < 0)
            return false;
        // Others are discarded by the demuxer, most of them; they count too.
        --packetsLeft_;
        if (packet_->stream_index != stream_->index)
            continue;
        // A damaged packet is no reason to give up: the next ones may do.
        avcodec_send_packet(decoder_.get(), packet_.get());
        return true;
    }
    return false;
}

std::optional<double> PictureReader::placeOf(const AVFrame& frame) const
{
    if (frame.best_effort_timestamp == AV_NOPTS_VALUE)
        return {};
    const auto start =
        format_->start_time == AV_NOPTS_VALUE ? 0.0 : static_cast<double>(format_->start_time) / AV_TIME_BASE;
    return static_cast<double>(frame.best_effort_timestamp) * av_q2d(stream_->time_base) - start;
}

double PictureReader::pixelAspect()
{
    const AVRational aspect = av_guess_sample_aspect_ratio(format_.get(), stream_, shown_.get());
    return aspect.num > 0 && aspect.den > 0 ? av_q2d(aspect) : 1;
}

int PictureReader::quarterTurns() const
{
    std::size_t size = 0;
    const auto* matrix =
        reinterpret_cast<const std::int32_t*>(av_stream_get_side_data(stream_, AV_PKT_DATA_DISPLAYMATRIX, &size));
    const double angle = matrix == nullptr || size < 9 * sizeof(std::int32_t) ? 0 : av_display_rotation_get(matrix);
    if (std::isnan(angle))
        return 0;
    return ((static_cast<int>(std::lround(-angle / 90)) % 4) + 4) % 4;
}

} // namespace tandrel

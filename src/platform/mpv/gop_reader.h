/// Reads the pictures of a medium one after the other, from a key frame on, with their exact times.
#pragma once

#include "platform/input/av_handles.h"
#include "platform/input/media_input.h"
#include "platform/mpv/step_picture.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

struct AVCodecParameters;
struct AVStream;

namespace tandrel
{

struct MediaSource {
    /// Absolute.
    std::string path;
    /// Of the file that the player has opened.
    FileMark mark;
    /// Frames a second, more or less.
    double frameRate = 0;
};

/// So many pictures before the wanted one are decoded in full, because they come in another order than they are read.
inline constexpr double kMostReordered = 24;

/// Whatever is not plain about a medium ends its reading as doubtful: the player may see it differently. For one
/// thread.
class GopReader
{
public:
    enum class Result { Picture, End, Doubtful };

    /// `cancelled` ends everything soon, as doubtful. `threads` decode.
    GopReader(const MediaSource& source, const std::atomic<bool>& cancelled, int threads = 1);
    ~GopReader();
    GopReader(const GopReader&) = delete;
    GopReader& operator=(const GopReader&) = delete;

    /// False if this medium is not to be read.
    bool open();
    /// The next picture is that of a key frame, wanted near to and not behind this time; it may be another one.
    bool seek(double seconds);
    /// The time of the last key frame that is not behind this one, as far as the file tells without being read.
    std::optional<double> keyFrameBefore(double seconds) const;
    /// Pictures that nothing depends on may be left out until told otherwise.
    void skimWhile(bool skim);
    Result next();

    /// Of the last picture: seconds by the player's clock.
    double time() const { return time_; }
    const AVFrame& frame() const { return *frame_; }
    const PictureColours& colours() const { return *colours_; }

private:
    static int refuses(void* self);

    /// True when it has been cancelled, or what is being done takes too long.
    bool mustEnd() const { return cancelled_ || std::chrono::steady_clock::now() > limit_; }
    void beginLimit();

    bool openFormat();
    AVStream* chooseStream() const;
    bool openDecoder();
    /// Hands the decoder what comes next. False if that is doubtful.
    bool feed();
    /// What to make of a frame that came out; empty if it is none of those wanted.
    std::optional<Result> judge();
    /// True for a frame of a common kind that is like all before it.
    bool isPlain();

    const MediaSource source_;
    const std::atomic<bool>& cancelled_;
    const int threads_;
    std::chrono::steady_clock::time_point limit_;
    std::unique_ptr<MediaInput> input_;
    AvFormat format_;
    AvDecoder decoder_;
    AvFrame frame_;
    AvPacket packet_;
    AVStream* stream_ = nullptr;
    /// What the player takes off all times.
    double start_ = 0;
    double time_ = 0;
    /// The time of the key frame that reading began with, once it has come.
    std::optional<double> began_;
    bool draining_ = false;
    std::optional<PictureColours> colours_;
    /// Width, height and format that all frames have to have.
    int width_ = 0;
    int height_ = 0;
    int pixelFormat_ = -1;
};

} // namespace tandrel

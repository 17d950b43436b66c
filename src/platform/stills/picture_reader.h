/// Reads a few pictures of any video file, within strict limits: whatever the file holds, it takes no longer and no
/// more memory than this.
#pragma once

#include "platform/input/av_handles.h"
#include "platform/input/media_input.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

struct AVStream;

namespace tandrel
{

/// How much a reader may take, and what it may leave out.
struct PictureLimits {
    std::int64_t bytes = 64 << 20;
    /// Of the video, at each place that is looked at.
    int packets = 300;
    /// For pictures that are shown so small that nobody sees what is left out.
    bool quick = true;
};

/// For one thread.
class PictureReader
{
public:
    /// Nothing is read any more once `refuses` says so.
    PictureReader(const std::string& path, const FileMark& mark, std::function<bool()> refuses,
                  const PictureLimits& limits = {});
    ~PictureReader();
    PictureReader(const PictureReader&) = delete;
    PictureReader& operator=(const PictureReader&) = delete;

    /// False where the file is no medium.
    bool open();
    /// The length of the medium as the file tells it, in ms.
    std::optional<std::int64_t> lengthMs() const;
    /// A picture at this place, or a key frame that is not far before it; with place 0 the first one. False where there
    /// is none, or none that may be shown.
    bool read(double seconds);
    /// Exactly the picture that is shown at this place, in seconds from the first picture: the last that is not later.
    /// A place is that of a picture up to 1.5 ms behind it, since places are told in whole ones. False where there is
    /// none.
    bool readExactly(double seconds);
    /// The picture that was read last.
    const AVFrame& frame() const { return *shown_; }
    /// The width of a pixel by its height.
    double pixelAspect();
    /// Quarter turns clockwise that the picture is to be shown with: 0 to 3.
    int quarterTurns() const;

private:
    static int interrupts(void* self);

    bool mustEnd() const;
    bool openFormat();
    void chooseStream();
    bool openDecoder();
    bool seek(double seconds);
    bool seekToBeginning();
    /// One seek for `readExactly`, which begins so much before the place. False where all it brings is later.
    bool tryExactly(double seconds, double margin);
    /// The next picture, in the order in which they are shown. False at the end.
    bool nextFrame();
    double firstPlace() const;
    /// Hands the decoder the next packet of the video; false at the end.
    bool feed();
    /// The place of a frame in seconds; empty where it has no stamp.
    std::optional<double> placeOf(const AVFrame& frame) const;

    const std::string path_;
    const FileMark mark_;
    const std::function<bool()> refuses_;
    const PictureLimits limits_;
    std::unique_ptr<MediaInput> input_;
    AvFormat format_;
    AvDecoder decoder_;
    AvFrame frame_;
    AvFrame shown_;
    AvPacket packet_;
    AVStream* stream_ = nullptr;
    int packetsLeft_ = 0;
    bool draining_ = false;
};

} // namespace tandrel

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

/// For one thread.
class PictureReader
{
public:
    /// Nothing is read any more once `refuses` says so.
    PictureReader(const std::string& path, const FileMark& mark, std::function<bool()> refuses);
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
    /// Hands the decoder the next packet of the video; false at the end.
    bool feed();
    /// The place of the last frame in seconds; empty where it has no stamp.
    std::optional<double> placeOfFrame() const;

    const std::string path_;
    const FileMark mark_;
    const std::function<bool()> refuses_;
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

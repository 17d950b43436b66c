/// FFmpeg's objects, each ended with its holder. None of FFmpeg's headers is needed to hold one.
#pragma once

#include <memory>

struct AVCodecContext;
struct AVFormatContext;
struct AVFrame;
struct AVPacket;

namespace tandrel
{

struct EndOfAv {
    /// Its input is closed too, unless it is the holder's own.
    void operator()(AVFormatContext* format) const;
    void operator()(AVCodecContext* decoder) const;
    void operator()(AVFrame* frame) const;
    void operator()(AVPacket* packet) const;
};

using AvFormat = std::unique_ptr<AVFormatContext, EndOfAv>;
using AvDecoder = std::unique_ptr<AVCodecContext, EndOfAv>;
using AvFrame = std::unique_ptr<AVFrame, EndOfAv>;
using AvPacket = std::unique_ptr<AVPacket, EndOfAv>;

} // namespace tandrel

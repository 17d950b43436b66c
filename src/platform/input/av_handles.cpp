#include "platform/input/av_handles.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/frame.h>
}

namespace tandrel
{

void EndOfAv::operator()(AVFormatContext* format) const { avformat_close_input(&format); }
void EndOfAv::operator()(AVCodecContext* decoder) const { avcodec_free_context(&decoder); }
void EndOfAv::operator()(AVFrame* frame) const { av_frame_free(&frame); }
void EndOfAv::operator()(AVPacket* packet) const { av_packet_free(&packet); }

} // namespace tandrel

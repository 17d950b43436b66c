#include "platform/mpv/picture_shrink.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace tandrel
{

int mostHalvings(const std::string& codec)
{
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get_by_name(codec.c_str());
    const AVCodec* decoder = descriptor ? avcodec_find_decoder(descriptor->id) : nullptr;
    return decoder ? decoder->max_lowres : 0;
}

namespace
{
/// So many pixels of a picture stand for so many on the screen.
bool isEnough(int pixels, int shown) { return pixels * 9 / 8 >= shown; }
} // namespace

int halvingsFor(const PictureSize& picture, const PictureSize& canvas, int most)
{
    int halvings = 0;
    while (halvings < most && isEnough(picture.width >> (halvings + 1), canvas.width) &&
           isEnough(picture.height >> (halvings + 1), canvas.height))
        ++halvings;
    return halvings;
}

} // namespace tandrel
